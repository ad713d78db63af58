// The Premiership and Championship mark screen: its controls and opening.
#include "three_judge_screen.h"
#include "mark_rules.h"
#include "core/globals.h"
#include "ui/geometry_store.h"
#include "ui/grid/column_fit.h"
#include "ui/grid/flex_grid.h"

#include <QApplication>
#include <QGridLayout>
#include <QHeaderView>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

using namespace ThreeJudge;

namespace {

QPushButton *Button(QWidget *parent, const QString &name, const QString &caption, const QString &tip = QString())
{
    auto *b = new QPushButton(caption, parent);
    b->setObjectName(name);
    if (!tip.isEmpty())
        b->setToolTip(tip);
    return b;
}

QGroupBox *Frame(const QString &name, const QString &caption)
{
    auto *f = new QGroupBox(caption);
    f->setObjectName(name);
    return f;
}

QListWidget *List(const QString &name)
{
    auto *l = new QListWidget;
    l->setObjectName(name);
    return l;
}

// A short list of fixed entries, each with its value.
QListWidget *Value_List(const QString &name, const QList<QPair<QString, int>> &entries)
{
    QListWidget *l = List(name);
    for (const auto &[text, value] : entries) {
        auto *it = new QListWidgetItem(text, l);
        it->setData(Qt::UserRole, value);
    }
    l->setFixedHeight(l->sizeHintForRow(0) * entries.size() + 2 * l->frameWidth() + 4);
    return l;
}

FlexGrid *Result_Grid(const QString &name)
{
    auto *g = new FlexGrid;
    g->setObjectName(name);
    g->setFocusPolicy(Qt::NoFocus);
    // The name takes the width left, so the grid never scrolls sideways.
    Keep_Last_Column_Filling(g);
    return g;
}

} // namespace

ThreeJudgeScreen::ThreeJudgeScreen(const Three_Judge_Kind &kind, QWidget *parent)
    : GridScreen(kind.formName, kind.caption, std::make_unique<Mark_Rules>(), parent), m_kind(kind)
{
    resize(Twips_To_Pixels(11655), Twips_To_Pixels(9000));
    for (QWidget *w : {static_cast<QWidget *>(CmdAdd), static_cast<QWidget *>(CmdSave), static_cast<QWidget *>(cmdDel)})
        w->hide();

    // The mark grid moves from the editor's own place into the dance frame.
    Body()->removeWidget(MSFlexGrid1);
    auto *panel = new QWidget;
    auto *columns = new QHBoxLayout(panel);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->addWidget(Build_Left());
    columns->addWidget(Build_Middle(), 1);
    columns->addWidget(Build_Right());
    Body()->addWidget(panel, 1);
    Build_Floating();
    Connect_Controls();

    // The main window tells which screen is open.
    for (QWidget *w : QApplication::topLevelWidgets())
        if (auto *main = qobject_cast<QMainWindow *>(w); main && main->objectName() == QLatin1String("frmMain"))
            main->setWindowTitle(App_Title + m_kind.mainTitleSuffix);

    Dance_Names = Default_Dance_Names();
    Choice.dance = m_kind.startDanceId;
    if (Load_Grid()) {
        Load_Events();
        Load_Judge_Lists();
    }
    Disable_Buttons();
    Dance_Buttons[0]->setStyleSheet(QStringLiteral("font-weight: bold"));
    lst_filter->setEnabled(false);
    Set_Dirty(false);
}

ThreeJudgeScreen::~ThreeJudgeScreen() = default;

QWidget *ThreeJudgeScreen::Build_Left()
{
    // The column is as wide as its controls need: the event list widens to its
    // longest name, so nothing here may fix the column's least width.
    auto *left = new QWidget;
    auto *v = new QVBoxLayout(left);
    v->setContentsMargins(0, 0, 0, 0);

    QGroupBox *events = Frame(QStringLiteral("Frame1"), QStringLiteral("Select event"));
    LstGroup = List(QStringLiteral("LstGroup"));
    LstGroup->setMinimumWidth(200);
    (new QVBoxLayout(events))->addWidget(LstGroup);
    v->addWidget(events, 1);

    QGroupBox *dances = Frame(QStringLiteral("Frame2"), QStringLiteral("Dances"));
    auto *g = new QGridLayout(dances);
    for (int i = 0; i < 4; ++i) {
        Dance_Buttons[i] = Button(dances, m_kind.buttonNames[i], m_kind.designCaptions[i]);
        Dance_Buttons[i]->setMinimumHeight(30);
        cmd_edit[i] = Button(dances, QStringLiteral("cmd_edit%1").arg(i + 1), QStringLiteral("..."),
                             QStringLiteral("Change the name of this dance"));
        cmd_edit[i]->setFixedWidth(28);
        g->addWidget(Dance_Buttons[i], i, 0);
        g->addWidget(cmd_edit[i], i, 1);
    }
    v->addWidget(dances);

    QGroupBox *filter = Frame(QStringLiteral("Frame6"), QStringLiteral("Filter Registered"));
    lst_filter = Value_List(QStringLiteral("lst_filter"), {{QStringLiteral("No"), 0}, {QStringLiteral("Yes"), 1}});
    lst_filter->setToolTip(QStringLiteral("Filter on registered competitors"));
    lst_filter->setCurrentRow(0);
    (new QVBoxLayout(filter))->addWidget(lst_filter);
    v->addWidget(filter);

    QGroupBox *trophies = Frame(QStringLiteral("Frame7"), QStringLiteral("Include in Trophies"));
    lstnodancers = Value_List(QStringLiteral("lstnodancers"), {{QStringLiteral("Yes"), 1}, {QStringLiteral("No"), 0}});
    lstnodancers->setToolTip(QStringLiteral("Did more than 6 dancers competet in this dance?"));
    (new QVBoxLayout(trophies))->addWidget(lstnodancers);
    v->addWidget(trophies);

    Cmd_Tally = Button(left, QStringLiteral("Cmd_Tally"), QStringLiteral("Tallier"), QStringLiteral("Save changes and tallier"));
    Cmd_Tally->setMinimumHeight(36);
    CmdRand = Button(left, QStringLiteral("CmdRand"), QStringLiteral("Random Draw"),
                     QStringLiteral("Create a random draw for this event"));
    v->addWidget(Cmd_Tally);
    v->addWidget(CmdRand);
    return left;
}

QWidget *ThreeJudgeScreen::Build_Middle()
{
    auto *middle = new QWidget;
    auto *v = new QVBoxLayout(middle);
    v->setContentsMargins(0, 0, 0, 0);

    lblEvent = new QLabel;
    lblEvent->setObjectName(QStringLiteral("lblEvent"));
    QFont f = lblEvent->font();
    f.setBold(true);
    f.setPointSizeF(f.pointSizeF() * 1.3);
    lblEvent->setFont(f);
    // A long event name takes a second line rather than the event list's width.
    lblEvent->setWordWrap(true);
    v->addWidget(lblEvent);

    auto *judges = new QHBoxLayout;
    for (int i = 0; i < 3; ++i) {
        QGroupBox *frame = Frame(QStringLiteral("FrameJudge%1").arg(i + 1), QStringLiteral("Select Judge %1").arg(i + 1));
        LstJudge[i] = List(QStringLiteral("LstJudge%1").arg(i + 1));
        LstJudge[i]->setFixedHeight(110);
        (new QVBoxLayout(frame))->addWidget(LstJudge[i]);
        judges->addWidget(frame);
    }
    v->addLayout(judges);

    Frame5 = Frame(QStringLiteral("Frame5"), QStringLiteral("Judges Results - "));
    auto *marks = new QVBoxLayout(Frame5);
    auto *hint = new QLabel(QStringLiteral("Use arrow keys to navigate"));
    hint->setObjectName(QStringLiteral("lblNavigate"));
    marks->addWidget(hint);
    marks->addWidget(MSFlexGrid1, 1);
    v->addWidget(Frame5, 1);

    // Under the marks, this computer's and the remote one's side by side, as
    // tall as their text: nothing while no check has failed.
    QGroupBox *checker = Frame(QStringLiteral("Frame10"), QStringLiteral("Result Checker"));
    auto *c = new QHBoxLayout(checker);
    txt_checker1 = new QPlainTextEdit;
    txt_checker1->setObjectName(QStringLiteral("txt_checker1"));
    txt_checker2 = new QPlainTextEdit;
    txt_checker2->setObjectName(QStringLiteral("txt_checker2"));
    for (QPlainTextEdit *t : {txt_checker1, txt_checker2}) {
        t->setReadOnly(true);
        t->setLineWrapMode(QPlainTextEdit::NoWrap);
        t->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        c->addWidget(t);
    }
    v->addWidget(checker);
    Show_Checker(QString(), QString());

    auto *progress = new QHBoxLayout;
    Label_progress = new QLabel(QStringLiteral("Tallying in Progress"));
    Label_progress->setObjectName(QStringLiteral("Label_progress"));
    ProgressBar1 = new QProgressBar;
    ProgressBar1->setObjectName(QStringLiteral("ProgressBar1"));
    progress->addWidget(Label_progress);
    progress->addWidget(ProgressBar1, 1);
    Label_progress->hide();
    ProgressBar1->hide();
    v->addLayout(progress);
    return middle;
}

QWidget *ThreeJudgeScreen::Build_Right()
{
    auto *right = new QWidget;
    right->setFixedWidth(340);
    auto *v = new QVBoxLayout(right);
    v->setContentsMargins(0, 0, 0, 0);

    Frame4 = Frame(QStringLiteral("Frame4"), QStringLiteral("Dance Result"));
    GrdODR = Result_Grid(QStringLiteral("GrdODR"));
    (new QVBoxLayout(Frame4))->addWidget(GrdODR);
    v->addWidget(Frame4, 1);

    QGroupBox *overall = Frame(QStringLiteral("Frame3"), QStringLiteral("Overall Result"));
    GrdHR = Result_Grid(QStringLiteral("GrdHR"));
    // Each result shows at least its caption and the six prize-winners.
    for (FlexGrid *g : {GrdODR, GrdHR})
        g->setMinimumHeight(g->verticalHeader()->defaultSectionSize() * 7 + 2 * g->frameWidth());
    (new QVBoxLayout(overall))->addWidget(GrdHR);
    v->addWidget(overall, 1);

    QGroupBox *reports = Frame(QStringLiteral("Framerpt"), QStringLiteral("Reports"));
    auto *g = new QGridLayout(reports);
    auto pair = [&](int row, QPushButton *&show, QPushButton *&print, const QString &showName, const QString &printName,
                    const QString &caption, const QString &tip) {
        show = Button(reports, showName, caption, tip);
        print = Button(reports, printName, QStringLiteral("Print"), QStringLiteral("Print the %1 report").arg(caption));
        g->addWidget(show, row, 0);
        g->addWidget(print, row, 1);
    };
    pair(0, CmdHR, CmdPRHR, QStringLiteral("CmdHR"), QStringLiteral("CmdPRHR"), QStringLiteral("Overall"),
         QStringLiteral("Display championship report"));
    pair(1, CmdJR, CmdPRJR, QStringLiteral("CmdJR"), QStringLiteral("CmdPRJR"), QStringLiteral("Judges"),
         QStringLiteral("Display judges report"));
    pair(2, cmdCallback, cmdPRCallback, QStringLiteral("cmdCallback"), QStringLiteral("cmdPRCallback"),
         QStringLiteral("Callbacks"), QStringLiteral("Display Callback Report"));
    pair(3, Cmd_Top_10, Cmd_Top_10_Print, QStringLiteral("Cmd_Top_10"), QStringLiteral("Cmd_Top_10_Print"),
         QStringLiteral("Top 10"), QString());
    pair(4, CmdSOBHD, cmdprSOBHD, QStringLiteral("CmdSOBHD"), QStringLiteral("cmdprSOBHD"), QStringLiteral("SOBHD"),
         QString());
    v->addWidget(reports);

    QGroupBox *check = Frame(QStringLiteral("Framechk"), QStringLiteral("Check Results"));
    auto *h = new QHBoxLayout(check);
    CmdPrepare = Button(check, QStringLiteral("CmdPrepare"), QStringLiteral("Create File"),
                        QStringLiteral("Create a file of results for comparison"));
    CmdCheck = Button(check, QStringLiteral("CmdCheck"), QStringLiteral("Check Results"),
                      QStringLiteral("Check results on remote computer"));
    h->addWidget(CmdPrepare);
    h->addWidget(CmdCheck);
    v->addWidget(check);

    return right;
}

void ThreeJudgeScreen::Build_Floating()
{
    // The quick find and the dance-name editor float over the screen.
    frm_no = new QGroupBox(QStringLiteral("Enter No"), this);
    frm_no->setObjectName(QStringLiteral("frm_no"));
    frm_no->setAutoFillBackground(true);
    txt_enter_no = new QLineEdit(frm_no);
    txt_enter_no->setObjectName(QStringLiteral("txt_enter_no"));
    (new QVBoxLayout(frm_no))->addWidget(txt_enter_no);
    frm_no->resize(150, 64);
    frm_no->hide();

    frm_edit_dances = new QGroupBox(QStringLiteral("Dance Names"), this);
    frm_edit_dances->setObjectName(QStringLiteral("frm_edit_dances"));
    frm_edit_dances->setAutoFillBackground(true);
    auto *g = new QGridLayout(frm_edit_dances);
    for (int i = 0; i < 4; ++i) {
        auto *label = new QLabel(QStringLiteral("Enter name of dance %1").arg(i + 1));
        edit_dance[i] = new QLineEdit;
        edit_dance[i]->setObjectName(QStringLiteral("edit_dance%1").arg(i + 1));
        g->addWidget(label, i, 0);
        g->addWidget(edit_dance[i], i, 1, 1, 3);
    }
    cmd_edit_save = Button(frm_edit_dances, QStringLiteral("cmd_edit_save"), QStringLiteral("Save"));
    edit_cmd_cancel = Button(frm_edit_dances, QStringLiteral("edit_cmd_cancel"), QStringLiteral("Cancel"));
    cmd_edit_default = Button(frm_edit_dances, QStringLiteral("cmd_edit_default"), QStringLiteral("Default"));
    cmd_edit_default2 = Button(frm_edit_dances, QStringLiteral("cmd_edit_default2"), QStringLiteral("Default"));
    g->addWidget(cmd_edit_default, 4, 0);
    g->addWidget(cmd_edit_save, 4, 1);
    g->addWidget(edit_cmd_cancel, 4, 2);
    g->addWidget(cmd_edit_default2, 4, 3);
    frm_edit_dances->resize(frm_edit_dances->sizeHint().expandedTo(QSize(460, 0)));
    frm_edit_dances->hide();
}

void ThreeJudgeScreen::Place_Floating()
{
    const QPoint grid = Frame5->mapTo(this, QPoint(0, 0));
    frm_no->move(grid.x() + Frame5->width() - frm_no->width() - 12, grid.y() + 18);
    frm_edit_dances->move(grid.x() + qMax(0, (Frame5->width() - frm_edit_dances->width()) / 2), grid.y() + 40);
}

void ThreeJudgeScreen::Connect_Controls()
{
    // Lists act on a selection made by the operator or by code, never on
    // the cursor a list puts on its first entry when it takes the focus.
    connect(LstGroup, &QListWidget::itemSelectionChanged, this, [this] { LstGroup_Click(); });
    new Shown_Entry_Click(LstGroup, [this] { return m_eventRow; }, [this] { LstGroup_Click(); });
    On_Screen_Focus(this, [this] { Own_Choice(); });
    for (int i = 0; i < 4; ++i) {
        connect(Dance_Buttons[i], &QPushButton::clicked, this, [this, i] { Dance_Button_Click(i + 1); });
        connect(cmd_edit[i], &QPushButton::clicked, this, &ThreeJudgeScreen::Show_Dance_Name_Editor);
    }
    for (int i = 0; i < 3; ++i)
        connect(LstJudge[i], &QListWidget::itemSelectionChanged, this, [this, i] { Judge_List_Click(i + 1); });
    connect(lstnodancers, &QListWidget::itemSelectionChanged, this, &ThreeJudgeScreen::lstnodancers_Click);
    connect(lst_filter, &QListWidget::itemSelectionChanged, this, &ThreeJudgeScreen::lst_filter_Click);
    connect(Cmd_Tally, &QPushButton::clicked, this, &ThreeJudgeScreen::Cmd_Tally_Click);
    connect(CmdRand, &QPushButton::clicked, this, &ThreeJudgeScreen::CmdRand_Click);
    connect(CmdPrepare, &QPushButton::clicked, this, &ThreeJudgeScreen::CmdPrepare_Click);
    connect(CmdCheck, &QPushButton::clicked, this, &ThreeJudgeScreen::CmdCheck_Click);
    for (QPushButton *b : {CmdHR, CmdPRHR, CmdJR, CmdPRJR, cmdCallback, cmdPRCallback, Cmd_Top_10, Cmd_Top_10_Print,
                           CmdSOBHD, cmdprSOBHD})
        connect(b, &QPushButton::clicked, this, [this, b] { Report_Button_Click(b); });
    connect(cmd_edit_save, &QPushButton::clicked, this, &ThreeJudgeScreen::Save_Dance_Names);
    connect(edit_cmd_cancel, &QPushButton::clicked, frm_edit_dances, &QWidget::hide);
    connect(cmd_edit_default, &QPushButton::clicked, this, &ThreeJudgeScreen::Reset_Dance_Names);
    connect(cmd_edit_default2, &QPushButton::clicked, this, &ThreeJudgeScreen::Reset_Dance_Names);

    // The mark cursor never rests on the number or the hidden key columns.
    connect(MSFlexGrid1, &QTableWidget::currentCellChanged, this, [this](int row, int col) {
        if (col >= 0 && col < First_Judge_Column && row >= 0)
            MSFlexGrid1->setCurrentCell(row, First_Judge_Column);
    });
    txt_enter_no->installEventFilter(this);
    auto *f3 = new QShortcut(QKeySequence(Qt::Key_F3), this);
    f3->setContext(Qt::WidgetWithChildrenShortcut);
    connect(f3, &QShortcut::activated, this, &ThreeJudgeScreen::Toggle_Quick_Find);
}

void ThreeJudgeScreen::Load_Events()
{
    m_events = ThreeJudge::Load_Events(conn(), Current_Competition_Id, m_kind.category);
    const QSignalBlocker quiet(LstGroup);
    LstGroup->clear();
    for (const Event_Entry &e : m_events)
        LstGroup->addItem(e.text);
    LstGroup->setCurrentRow(-1);
}

void ThreeJudgeScreen::Load_Judge_Lists()
{
    const QList<Judge_Entry> judges = ThreeJudge::Load_Judge_Lists(conn(), Current_Competition_Id, Opt_Judges_Order);
    for (QListWidget *list : LstJudge) {
        const QSignalBlocker quiet(list);
        list->clear();
        for (const Judge_Entry &j : judges) {
            auto *it = new QListWidgetItem(j.text, list);
            it->setData(Qt::UserRole, j.judgeId);
        }
        list->setCurrentRow(-1);
    }
}

QList<QWidget *> ThreeJudgeScreen::Event_Controls() const
{
    QList<QWidget *> controls{CmdSOBHD, cmdprSOBHD, MSFlexGrid1, Cmd_Tally, CmdHR, CmdPRHR, CmdJR, CmdPRJR, cmdCallback,
                              cmdPRCallback, lstnodancers, CmdPrepare, CmdCheck, Cmd_Top_10, Cmd_Top_10_Print};
    for (QPushButton *b : Dance_Buttons)
        controls << b;
    for (QListWidget *l : LstJudge)
        controls << l;
    return controls;
}

void ThreeJudgeScreen::Enable_Buttons()
{
    for (QWidget *w : Event_Controls())
        w->setEnabled(true);
    lst_filter->setEnabled(true);
}

void ThreeJudgeScreen::Disable_Buttons()
{
    for (QWidget *w : Event_Controls())
        w->setEnabled(false);
    Clear_Mark_Grid();
    for (FlexGrid *g : {GrdODR, GrdHR}) {
        g->clearContents();
        g->Set_Size(1, g->columnCount());
    }
}
