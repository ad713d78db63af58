#include "frmCompetitors.h"
#include "competitor_columns.h"
#include "event_lists.h"

#include "core/dialogs.h"
#include "core/errors.h"
#include "core/globals.h"
#include "ui/geometry_store.h"
#include "ui/grid/flex_grid.h"

#include <QCoreApplication>
#include <QFontMetrics>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

frmCompetitors::frmCompetitors(QWidget *parent)
    : GridScreen(QStringLiteral("frmCompetitors"), App_Title + QStringLiteral(" - Competitors"),
                 std::make_unique<Competitor_Rules>(Current_Competition_Id), parent)
{
    CmdViewSearch = new QPushButton(QStringLiteral("Display search screen"), this);
    CmdViewSearch->setObjectName(QStringLiteral("CmdViewSearch"));
    CmdViewSearch->setEnabled(false);
    Button_Row()->insertWidget(3, CmdViewSearch);
    connect(CmdViewSearch, &QPushButton::clicked, this, &frmCompetitors::CmdViewSearch_Click);

    Build_Event_Frame();
    Build_Search_Frame();
    Set_Arrows_By_Sent_Keys(true);

    FrameSearch->hide();
    setWindowState(windowState() | Qt::WindowMaximized);
    if (Load_Grid())
        Read_Event_List();
    Widen_Narrow_Columns();
    FrameAG->hide();
}

void frmCompetitors::Widen_Narrow_Columns()
{
    // The narrow widths were drawn for a smaller type than this one: a
    // column is widened where its caption, or a whole competitor number,
    // would otherwise be cut.
    QFont bold = MSFlexGrid1->font();
    bold.setBold(true);
    const QFontMetrics captions(bold);
    const QFontMetrics cells(MSFlexGrid1->font());
    const QList<int> &widths = Competitor_Widths();
    const QStringList &texts = Competitor_Captions();
    for (int col = 1; col < widths.size(); ++col) {
        int needed = captions.horizontalAdvance(texts.at(col)) + 12;
        if (col == Competitor_Col::Number)
            needed = qMax(needed, cells.horizontalAdvance(QStringLiteral("32767")) + 12);
        MSFlexGrid1->Set_Col_Width(col, qMax(widths.at(col), Pixels_To_Twips(needed)));
    }
}

void frmCompetitors::Build_Event_Frame()
{
    FrameAG = new QGroupBox(QStringLiteral("Select Event"), this);
    Keep_Editor_Open_For(FrameAG);
    FrameAG->setObjectName(QStringLiteral("FrameAG"));
    FrameAG->setAutoFillBackground(true);
    LstAG = new QListWidget(FrameAG);
    LstAG->setObjectName(QStringLiteral("LstAG"));
    CmdGroupCancel = new QPushButton(QStringLiteral("Cancel selection"), FrameAG);
    CmdGroupCancel->setObjectName(QStringLiteral("CmdGroupCancel"));
    auto *box = new QVBoxLayout(FrameAG);
    box->addWidget(LstAG, 1);
    box->addWidget(CmdGroupCancel);
    LstAG->installEventFilter(this);
    connect(LstAG, &QListWidget::itemClicked, this, [this](QListWidgetItem *item) { LstAG_Click(LstAG->row(item)); });
    connect(CmdGroupCancel, &QPushButton::clicked, this, &frmCompetitors::CmdGroupCancel_Click);
}

void frmCompetitors::resizeEvent(QResizeEvent *event)
{
    GridScreen::resizeEvent(event);
    Place_Frames();
}

void frmCompetitors::Place_Frames()
{
    // Both frames float over the grid: the event list at its right edge, the
    // search panel in its middle.
    const QRect g = MSFlexGrid1->geometry();
    const int w = qMin(qMax(320, LstAG->sizeHintForColumn(0) + 60), g.width());
    FrameAG->setGeometry(g.right() - w - 20, g.top() + 30, w, qMax(200, g.height() * 2 / 3));
    const QSize s = FrameSearch->sizeHint().expandedTo(QSize(560, 0));
    FrameSearch->setGeometry(g.left() + qMax(0, (g.width() - s.width()) / 2), g.top() + 40, s.width(), s.height());
}

void frmCompetitors::Read_Event_List()
{
    const Event_List list = Load_Event_Lookup(conn(), Rules().competitionId());
    LstAG->clear();
    LstAG->addItems(list.names);
    m_lookupCodes = list.codes;
    Rules().setCodes(list.codes);
    m_eventListLoaded = true;
}

bool frmCompetitors::F2_Lookup(bool fromEditor)
{
    if (Current_Col() >= 8) {
        // The row counts as changed whether or not an event is then taken.
        Rules().marks().set(Current_Row());
        Place_Frames();
        FrameAG->show();
        FrameAG->raise();
        LstAG->setFocus();
        return true;
    }
    if (fromEditor) {
        Begin_Edit(QString());
        return true;
    }
    return false;
}

void frmCompetitors::LstAG_Click(int index)
{
    if (index < 0 || index >= m_lookupCodes.size())
        return;
    // The code lands in whichever column the cursor stands in.
    const QString code = m_lookupCodes.at(index);
    txtEdit->setText(code);
    Set_Cell(Current_Row(), Current_Col(), code);
    MSFlexGrid1->setFocusPolicy(Qt::StrongFocus);
    MSFlexGrid1->setFocus();
    FrameAG->hide();
    QCoreApplication::processEvents();
    Begin_Edit(QString());
}

void frmCompetitors::CmdGroupCancel_Click()
{
    FrameAG->hide();
    if (!Editor_Open())
        MSFlexGrid1->setFocus();
}

bool frmCompetitors::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == LstAG && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            LstAG_Click(LstAG->currentRow());
            return true;
        }
    }
    return GridScreen::eventFilter(watched, event);
}

void frmCompetitors::Set_Headers(bool afterSave)
{
    GridScreen::Set_Headers(afterSave);
    if (records().isOpen() && records().rowCount() > 0)
        CmdViewSearch->setEnabled(true);
}

void frmCompetitors::Delete_Captions(bool, bool)
{
    Set_Headers(false);
}

void frmCompetitors::Form_Unload()
{
    m_eventListLoaded = false;
}
