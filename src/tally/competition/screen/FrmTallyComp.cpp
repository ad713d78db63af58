// The Competition mark screen: its controls, their places, opening and the
// display routines. Selecting, saving and the keys live beside it.
#include "FrmTallyComp.h"
#include "event_queries.h"
#include "mark_rules.h"
#include "result_rows.h"
#include "status_icons.h"
#include "core/dialogs.h"
#include "core/errors.h"
#include "core/globals.h"
#include "ui/geometry_store.h"
#include "ui/grid/column_fit.h"
#include "ui/grid/flex_grid.h"
#include "ui/screen_scaler.h"

#include <QFontMetricsF>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

// The screen is drawn on a form of 11655 by 9150 twips and scaled from there.
constexpr int Form_Width = 11655;
constexpr int Form_Height = 9150;

QRect Twips(int x, int y, int w, int h)
{
    return QRect(Twips_To_Pixels(x), Twips_To_Pixels(y), Twips_To_Pixels(w), Twips_To_Pixels(h));
}

QGroupBox *Frame(QWidget *parent, const char *name, const QString &caption)
{
    auto *frame = new QGroupBox(caption, parent);
    frame->setObjectName(QString::fromLatin1(name));
    auto *layout = new QVBoxLayout(frame);
    layout->setContentsMargins(6, 4, 6, 6);
    layout->setSpacing(4);
    return frame;
}

QListWidget *List(QGroupBox *frame, const char *name)
{
    auto *list = new QListWidget(frame);
    list->setObjectName(QString::fromLatin1(name));
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    frame->layout()->addWidget(list);
    return list;
}

void Add_Item(QListWidget *list, const QString &text, int value)
{
    auto *item = new QListWidgetItem(text, list);
    item->setData(Qt::UserRole, value);
}

QPushButton *Button(QWidget *parent, const char *name, const QString &caption, const QString &tip = QString())
{
    auto *button = new QPushButton(caption, parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setToolTip(tip);
    // Buttons in a frame stack in it; the screen's own are placed by hand.
    if (qobject_cast<QGroupBox *>(parent))
        parent->layout()->addWidget(button);
    return button;
}

FlexGrid *Result_Grid(QGroupBox *frame, const char *name)
{
    auto *grid = new FlexGrid(frame);
    grid->setObjectName(QString::fromLatin1(name));
    grid->Set_Fixed_Rows(1);
    grid->Set_Size(1, 3);
    grid->setFocusPolicy(Qt::NoFocus);
    grid->setSelectionMode(QAbstractItemView::NoSelection);
    // The name takes the width left, so the grid never scrolls sideways.
    Keep_Last_Column_Filling(grid);
    frame->layout()->addWidget(grid);
    return grid;
}

} // namespace

FrmTallyComp::FrmTallyComp(QWidget *parent)
    : GridScreen(QStringLiteral("FrmTallyComp"), Current_Competition_Name + QStringLiteral(" - Tallier Competition"),
                 std::make_unique<Mark_Rules>(), parent)
{
    Build_Controls();
    Connect_Handlers();
    Load_Form();
}

FrmTallyComp::~FrmTallyComp() = default;

Mark_Rules &FrmTallyComp::Marks()
{
    return static_cast<Mark_Rules &>(rules());
}

void FrmTallyComp::Build_Controls()
{
    // The mark grid and its editor come from the grid screen; this screen has
    // no add, save or delete buttons of its own and places the grid itself.
    Body()->removeWidget(MSFlexGrid1);
    delete CmdAdd;
    delete CmdSave;
    delete cmdDel;
    CmdAdd = CmdSave = cmdDel = nullptr;

    resize(Twips_To_Pixels(Form_Width), Twips_To_Pixels(Form_Height));

    auto *eventFrame = Frame(this, "FrameEvent", QStringLiteral("Select Event"));
    eventFrame->setGeometry(Twips(120, 120, 2700, 4300));
    LstGroup = List(eventFrame, "LstGroup");

    Frame1 = Frame(this, "Frame1", QStringLiteral("Select Dance"));
    for (int n = 1; n <= 10; ++n) {
        Cmd[n] = Button(Frame1, QStringLiteral("Cmd%1").arg(n).toLatin1().constData(), QString());
        Cmd[n]->setCheckable(true);
        Cmd[n]->hide();
    }
    static_cast<QVBoxLayout *>(Frame1->layout())->addStretch(1);

    Frame5 = Frame(this, "Frame5", QString());
    Frame5->setGeometry(Twips(5560, 120, 1600, 5000));
    MSFlexGrid1->setParent(Frame5);
    Frame5->layout()->addWidget(MSFlexGrid1);
    MSFlexGrid1->show();

    Build_Lists();
    Build_Buttons();
    Build_Results();

    auto *settings = Frame(this, "Frame6", QStringLiteral("Settings"));
    settings->setGeometry(Twips(120, 6900, 2700, 1500));
    auto icon_row = [settings](QLabel *&on, QLabel *&off, QLabel *&label, const char *onName, const char *offName,
                               const char *labelName, const QString &caption) {
        auto *row = new QWidget(settings);
        auto *h = new QHBoxLayout(row);
        h->setContentsMargins(0, 0, 0, 0);
        on = new QLabel(row);
        on->setObjectName(QString::fromLatin1(onName));
        on->setPixmap(Status_Icon(true));
        off = new QLabel(row);
        off->setObjectName(QString::fromLatin1(offName));
        off->setPixmap(Status_Icon(false));
        label = new QLabel(caption, row);
        label->setObjectName(QString::fromLatin1(labelName));
        h->addWidget(on);
        h->addWidget(off);
        h->addWidget(label, 1);
        settings->layout()->addWidget(row);
    };
    icon_row(img_save_on, img_save_off, lbl_save, "img_save_on", "img_save_off", "lbl_save", QStringLiteral("Auto Save"));
    icon_row(img_write_on, img_write_off, lbl_write, "img_write_on", "img_write_off", "lbl_write",
             QStringLiteral("Check Mode"));

    Label_progress = new QLabel(QStringLiteral("Tallying in Progress"), this);
    Label_progress->setObjectName(QStringLiteral("Label_progress"));
    Label_progress->setGeometry(Twips(120, 8480, 1300, 330));
    Label_progress->hide();
    ProgressBar1 = new QProgressBar(this);
    ProgressBar1->setObjectName(QStringLiteral("ProgressBar1"));
    ProgressBar1->setGeometry(Twips(1440, 8480, 1380, 330));
    ProgressBar1->setTextVisible(false);
    ProgressBar1->hide();

    txtEdit->raise();
}

void FrmTallyComp::Build_Lists()
{
    auto *judgeFrame = Frame(this, "FrameJudge", QStringLiteral("Select Judge"));
    judgeFrame->setGeometry(Twips(120, 4500, 2700, 2300));
    LstJudge = List(judgeFrame, "LstJudge");
    txtJudge = new QLabel(judgeFrame);
    txtJudge->setObjectName(QStringLiteral("txtJudge"));
    txtJudge->setFrameShape(QFrame::StyledPanel);
    judgeFrame->layout()->addWidget(txtJudge);

    auto *prizeFrame = Frame(this, "FramePrizes", QStringLiteral("No of Prizes"));
    prizeFrame->setGeometry(Twips(5560, 5200, 1600, 1300));
    LstNoPrizes = List(prizeFrame, "LstNoPrizes");
    // "16" places nobody: its value is 0.
    for (int n = 1; n <= 16; ++n)
        Add_Item(LstNoPrizes, QString::number(n), n == 16 ? 0 : n);
    LstNoPrizes_auto = new QListWidget(prizeFrame);
    LstNoPrizes_auto->setObjectName(QStringLiteral("LstNoPrizes_auto"));
    Add_Item(LstNoPrizes_auto, QStringLiteral("AUTO"), -99);
    for (int n = 1; n <= 16; ++n)
        Add_Item(LstNoPrizes_auto, QString::number(n), n == 16 ? 0 : n);
    LstNoPrizes_auto->hide();

    auto *trophyFrame = Frame(this, "FrameTrophies", QStringLiteral("Inc in Trophies"));
    trophyFrame->setGeometry(Twips(5560, 6580, 1600, 1050));
    lstnodancers = List(trophyFrame, "lstnodancers");
    lstnodancers->setToolTip(QStringLiteral("Did 6 or more dancers compete in this dance?"));
    Add_Item(lstnodancers, QStringLiteral("Yes"), 1);
    Add_Item(lstnodancers, QStringLiteral("No"), 0);

    auto *filterFrame = Frame(this, "FrameFilter", QStringLiteral("Filter Registered"));
    filterFrame->setGeometry(Twips(5560, 7690, 1600, 1050));
    lst_filter = List(filterFrame, "lst_filter");
    lst_filter->setToolTip(QStringLiteral("Filter on registered competitors"));
    Add_Item(lst_filter, QStringLiteral("No"), 0);
    Add_Item(lst_filter, QStringLiteral("Yes"), 1);
    lst_filter->setCurrentRow(0);
    lst_filter->setEnabled(false);
}

void FrmTallyComp::Build_Buttons()
{
    CmdTally = Button(this, "CmdTally", QStringLiteral("Tallier"), QStringLiteral("Save changes and tally"));

    Framerpt = Frame(this, "Framerpt", QStringLiteral("Reports"));
    CmdRpt = Button(Framerpt, "CmdRpt", QStringLiteral("Overall"));
    CmdPRRpt = Button(Framerpt, "CmdPRRpt", QStringLiteral("Print"));
    cmdCallback = Button(Framerpt, "cmdCallback", QStringLiteral("Callbacks"));
    cmdPRCallback = Button(Framerpt, "cmdPRCallback", QStringLiteral("Print"));

    Framechk = Frame(this, "Framechk", QStringLiteral("Check Results"));
    CmdPrepare = Button(Framechk, "CmdPrepare", QStringLiteral("Create File"));
    CmdCheck = Button(Framechk, "CmdCheck", QStringLiteral("Check File"));
    static_cast<QVBoxLayout *>(Framechk->layout())->addStretch(1);
}

void FrmTallyComp::Build_Results()
{
    struct Result_Frame
    {
        const char *frame;
        QString caption;
        const char *grid;
        FlexGrid **target;
        QGroupBox **box;
    };
    QGroupBox *unused = nullptr;
    const Result_Frame frames[] = {
        {"Frame4", QStringLiteral(" Result"), "GrdODR", &GrdODR, &Frame4},
        {"FrameOR", QStringLiteral("Overall Result"), "GrdOR", &GrdOR, &unused},
        {"FrameHR", QStringLiteral("Highland Result"), "GrdHR", &GrdHR, &unused},
        {"FrameNR", QStringLiteral("National Result"), "GrdNR", &GrdNR, &unused},
    };
    // Three bands down the whole height, Highland and National side by side in
    // the last: each grid shows the six prize-winners and a tie. The two-column
    // mark grid beside them leaves them the width their names need.
    const QRect places[] = {Twips(7220, 120, 4375, 2960), Twips(7220, 3120, 4375, 2960),
                            Twips(7220, 6120, 2165, 2960), Twips(9430, 6120, 2165, 2960)};
    int n = 0;
    for (const Result_Frame &f : frames) {
        QGroupBox *frame = Frame(this, f.frame, f.caption);
        frame->setGeometry(places[n++]);
        *f.target = Result_Grid(frame, f.grid);
        *f.box = frame;
    }
}

void FrmTallyComp::Connect_Handlers()
{
    // Lists act on an entry the operator selects (click or arrow key), never
    // on the cursor a list puts on its first entry when it takes the focus.
    connect(LstGroup, &QListWidget::itemSelectionChanged, this, [this] {
        if (m_eventLive)
            LstGroup_Click();
    });
    new Shown_Entry_Click(LstGroup, [this] { return m_selectedEvent; }, [this] { Load_Event(m_selectedEvent); });
    On_Screen_Focus(this, [this] { Own_Choice(); });
    for (int n = 1; n <= 10; ++n)
        connect(Cmd[n], &QPushButton::clicked, this, [this, n] { Cmd_Click(n); });
    connect(CmdTally, &QPushButton::clicked, this, &FrmTallyComp::CmdTally_Click);
    connect(LstNoPrizes, &QListWidget::itemSelectionChanged, this, &FrmTallyComp::LstNoPrizes_Click);
    connect(lstnodancers, &QListWidget::currentRowChanged, this, &FrmTallyComp::lstnodancers_Click);
    connect(lst_filter, &QListWidget::currentRowChanged, this, &FrmTallyComp::lst_filter_Click);
    connect(LstJudge, &QListWidget::itemSelectionChanged, this, &FrmTallyComp::LstJudge_Click);
    connect(CmdRpt, &QPushButton::clicked, this, &FrmTallyComp::CmdRpt_Click);
    connect(CmdPRRpt, &QPushButton::clicked, this, &FrmTallyComp::CmdPRRpt_Click);
    connect(cmdCallback, &QPushButton::clicked, this, &FrmTallyComp::cmdCallback_Click);
    connect(cmdPRCallback, &QPushButton::clicked, this, &FrmTallyComp::cmdPRCallback_Click);
    connect(CmdPrepare, &QPushButton::clicked, this, &FrmTallyComp::CmdPrepare_Click);
    connect(CmdCheck, &QPushButton::clicked, this, &FrmTallyComp::CmdCheck_Click);
}

void FrmTallyComp::Load_Form()
{
    // No event yet: the grid opens on nothing, which sets its widths and captions.
    Load_Grid();
    Set_Mark_Widths();
    No_Of_Dances = 0;
    Lay_Out_Frames();
    m_scaler = new ScreenScaler(this);
    m_scaler->Record();
    if (!conn().isOpen())
        return;

    m_eventLive = false;
    const QList<Event_Entry> events = Competition_Events(conn(), Current_Competition_Id);
    for (const Event_Entry &e : events) {
        LstGroup->addItem(e.name);
        Event_Codes << e.code;
        Event_Categories << e.category;
    }
    LstGroup->setCurrentRow(-1);
    m_eventLive = true;

    for (const Judge_Entry &j : Competition_Judges(conn(), Current_Competition_Id)) {
        auto *item = new QListWidgetItem(j.name, LstJudge);
        item->setData(Qt::UserRole, j.id);
    }
    Disable_Buttons();
    Clear_Dance_Buttons();
    Show_Setting_Icons();
    Set_Dirty(false);
}

void FrmTallyComp::Lay_Out_Frames()
{
    // The dance frame grows with the event's dances; what stands below it follows.
    // With no dances it keeps room for its caption.
    const int frameHeight = qMax(900, 7300 - (12 - No_Of_Dances) * 600);
    const int tallyTop = 120 + frameHeight + 200;
    const int framesTop = tallyTop + 600 + 50;
    const QSize now = contentsRect().size();
    const qreal rx = m_scaler ? qreal(now.width()) / Twips_To_Pixels(Form_Width) : 1.0;
    const qreal ry = m_scaler ? qreal(now.height()) / Twips_To_Pixels(Form_Height) : 1.0;
    auto place = [rx, ry](QWidget *w, const QRect &r) {
        w->setGeometry(qRound(r.x() * rx), qRound(r.y() * ry), qRound(r.width() * rx), qRound(r.height() * ry));
    };
    place(Frame1, Twips(2940, 120, 2500, frameHeight));
    place(CmdTally, Twips(2940, tallyTop, 2500, 600));
    place(Framerpt, Twips(2940, framesTop, 1220, 2000));
    place(Framechk, Twips(4220, framesTop, 1220, 2000));
    if (m_scaler)
        m_scaler->Record();
}

void FrmTallyComp::Enable_Buttons()
{
    MSFlexGrid1->setEnabled(true);
    for (QWidget *w : std::initializer_list<QWidget *>{CmdTally, CmdRpt, CmdPRRpt, cmdCallback, cmdPRCallback,
                                                       CmdPrepare, CmdCheck, LstJudge, LstNoPrizes, lstnodancers,
                                                       lst_filter})
        w->setEnabled(true);
}

void FrmTallyComp::Disable_Buttons()
{
    MSFlexGrid1->setEnabled(false);
    for (FlexGrid *grid : {GrdODR, GrdHR, GrdNR})
        Fill_Result_Grid(grid, {});
    Clear_Grid();
    Set_Headers(false);
    for (QWidget *w : std::initializer_list<QWidget *>{CmdTally, CmdRpt, CmdPRRpt, cmdCallback, cmdPRCallback,
                                                       CmdPrepare, CmdCheck, LstJudge, LstNoPrizes, lstnodancers})
        w->setEnabled(false);
    txtJudge->clear();
}

void FrmTallyComp::Clear_Dance_Buttons()
{
    for (int n = 1; n <= 10; ++n) {
        Cmd[n]->setChecked(false);
        Cmd[n]->hide();
    }
}

void FrmTallyComp::Mark_Dance_Button(int n)
{
    // The dance shown is the button held down, in bold on a tinted face; only
    // these two attributes are set, so the size still follows the screen.
    for (int i = 1; i <= 10; ++i) {
        Cmd[i]->setChecked(i == n);
        QFont f;
        f.setBold(i == n);
        Cmd[i]->setFont(f);
        QPalette p;
        if (i == n)
            p.setColor(QPalette::Button, QColor(0xbc, 0xd4, 0xf0));
        Cmd[i]->setPalette(p);
    }
}

void FrmTallyComp::Show_Setting_Icons()
{
    img_save_on->setVisible(Opt_Auto_Save);
    img_save_off->setVisible(!Opt_Auto_Save);
    img_write_on->setVisible(Opt_Check_Mode == 1);
    img_write_off->setVisible(Opt_Check_Mode != 1);
}

void FrmTallyComp::Show_Progress(int value, int max)
{
    if (value == 0) {
        ProgressBar1->setMinimum(0);
        ProgressBar1->setMaximum(max);
        ProgressBar1->setValue(0);
        ProgressBar1->show();
        Label_progress->show();
        return;
    }
    ProgressBar1->setValue(value);
}

void FrmTallyComp::Hide_Progress()
{
    ProgressBar1->hide();
    Label_progress->hide();
    ProgressBar1->setValue(0);
}

void FrmTallyComp::Fill_Result_Grid(FlexGrid *grid, const QList<QStringList> &rows)
{
    grid->clearContents();
    grid->Set_Size(1, 3);
    if (rows.isEmpty())
        return;
    grid->Set_Size(rows.size() + 1, 3);
    const QStringList headers = Result_Headers();
    for (int c = 0; c < 3; ++c)
        grid->Set_Text(0, c, headers.at(c));
    for (int r = 0; r < rows.size(); ++r)
        for (int c = 0; c < 3; ++c)
            grid->Set_Text(r + 1, c, rows.at(r).value(c));
    Set_Result_Widths(grid);
}

void FrmTallyComp::Set_Width(FlexGrid *grid, int col, int twips)
{
    // Widths were drawn for a font whose digits are six pixels wide; they
    // grow with the font, as the screen's fonts grow with the window.
    const qreal digit = QFontMetricsF(grid->font()).horizontalAdvance(QLatin1Char('0'));
    grid->Set_Col_Width(col, Pixels_To_Twips(qRound(Twips_To_Pixels(twips) * qMax<qreal>(1.0, digit / 6.0))));
}

void FrmTallyComp::Set_Result_Widths(FlexGrid *grid)
{
    Set_Width(grid, 0, 500);
    Set_Width(grid, 1, 600);
}

void FrmTallyComp::Set_Mark_Widths()
{
    Set_Width(MSFlexGrid1, 0, 500);
    Set_Width(MSFlexGrid1, 1, 750);
}

void FrmTallyComp::resizeEvent(QResizeEvent *event)
{
    GridScreen::resizeEvent(event);
    Set_Mark_Widths();
    for (FlexGrid *grid : {GrdODR, GrdOR, GrdHR, GrdNR})
        Set_Result_Widths(grid);
}
