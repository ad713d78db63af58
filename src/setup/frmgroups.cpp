#include "frmgroups.h"
#include "event_rules.h"

#include "core/globals.h"
#include "ui/grid/flex_grid.h"

#include <QEvent>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>

frmgroups::frmgroups(QWidget *parent)
    : GridScreen(QStringLiteral("frmgroups"), App_Title + QStringLiteral(" - Events"), std::make_unique<EventRules>(),
                 parent)
{
    frmCat = new QGroupBox(QStringLiteral("Categories"), this);
    Keep_Editor_Open_For(frmCat);
    frmCat->setObjectName(QStringLiteral("frmCat"));
    // It floats over the grid: paint its own background.
    frmCat->setAutoFillBackground(true);
    LstCatLookup = new QListWidget(frmCat);
    LstCatLookup->setObjectName(QStringLiteral("LstCatLookup"));
    (new QVBoxLayout(frmCat))->addWidget(LstCatLookup);
    frmCat->hide();
    LstCatLookup->installEventFilter(this);
    connect(LstCatLookup, &QListWidget::itemClicked, this, &frmgroups::LstCatLookup_Click);

    if (Load_Grid())
        Read_Lookup();
}

EventRules &frmgroups::Rules()
{
    return static_cast<EventRules &>(rules());
}

void frmgroups::Read_Lookup()
{
    Rules().lookup = Read_Category_Lookup(conn(), Current_Competition_Id);
    LstCatLookup->clear();
    LstCatLookup->addItems(Rules().lookup.names);
}

void frmgroups::Add_Row()
{
    // With no event stored yet the first row takes 6 overall prizes, not 1.
    if (records().rowCount() == 0 && Row_Count() == Fixed_Rows() + 1) {
        const int row = Current_Row() >= Fixed_Rows() ? Current_Row() : Fixed_Rows();
        Set_Cell(row, 5, QStringLiteral("N"));
        Set_Cell(row, 4, QStringLiteral("6"));
        Set_Cell(row, 9, QStringLiteral("6"));
    }
    GridScreen::Add_Row();
}

bool frmgroups::F2_Lookup(bool fromEditor)
{
    if (Current_Col() != 3 || Current_Row() < Fixed_Rows())
        return false;
    if (!fromEditor)
        Begin_Edit(QString());
    m_lookRow = Current_Row();
    m_lookCol = Current_Col();
    // The list opens under the cell.
    const QRect cell = MSFlexGrid1->visualRect(MSFlexGrid1->model()->index(m_lookRow, m_lookCol));
    const QPoint at = MSFlexGrid1->viewport()->mapTo(this, cell.bottomLeft());
    frmCat->setGeometry(at.x(), at.y(), qMax(cell.width(), 220), 180);
    frmCat->show();
    frmCat->raise();
    LstCatLookup->setFocus();
    return true;
}

void frmgroups::Hide_Lookup()
{
    frmCat->hide();
}

void frmgroups::LstCatLookup_Click()
{
    const int pos = LstCatLookup->currentRow();
    if (pos < 0 || pos >= Rules().lookup.codes.size() || m_lookRow < 0)
        return;
    const QString code = Rules().lookup.codes.at(pos);
    const int row = m_lookRow, col = m_lookCol;
    txtEdit->setText(code);
    Set_Cell(row, col, code);
    m_lookRow = -1;
    Hide_Lookup();
    MSFlexGrid1->setFocus();
    Go_To(row, col);
    Set_Dirty(true);
    // The operator leaves the cell through validation.
    Begin_Edit(QString());
}

bool frmgroups::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == LstCatLookup) {
        if (event->type() == QEvent::FocusOut && frmCat->isVisible()) {
            const int row = m_lookRow, col = m_lookCol;
            Hide_Lookup();
            if (row >= 0)
                Go_To(row, col);
        } else if (event->type() == QEvent::KeyPress) {
            const int key = static_cast<QKeyEvent *>(event)->key();
            if (key == Qt::Key_Return || key == Qt::Key_Enter) {
                LstCatLookup_Click();
                return true;
            }
        }
    }
    return GridScreen::eventFilter(watched, event);
}
