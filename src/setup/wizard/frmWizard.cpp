#include "frmWizard.h"
#include "wizard_logic.h"

#include "setup/category_logic.h"
#include "setup/competition_logic.h"
#include "setup/panel_widgets.h"

#include "core/dialogs.h"
#include "core/errors.h"
#include "core/globals.h"

#include <QApplication>
#include <QEvent>
#include <QFocusEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QTimer>

using namespace Panel;

namespace {

const QString More_Groups_Text = QStringLiteral("Do you want to create any more age groups? ");

QLabel *Note(const QString &text)
{
    auto *l = new QLabel(text);
    l->setWordWrap(true);
    return l;
}

QHBoxLayout *Buttons(QPushButton *next, QPushButton *cancel)
{
    auto *row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(cancel);
    row->addWidget(next);
    return row;
}

// The dance goes to the end of the other list; the cursor stays where it was.
void Move_Dance(QListWidget *from, QListWidget *to, QListWidgetItem *item)
{
    const int row = from->row(item);
    to->addItem(from->takeItem(row));
    to->setCurrentItem(item);
    from->setCurrentRow(qMin(row, from->count() - 1));
}

} // namespace

frmWizard::frmWizard(QWidget *parent) : Screen(QStringLiteral("frmWizard"), QStringLiteral("Competition Wizard"), parent)
{
    auto *top = Column(this, 820);
    top->addWidget(Heading(this, LblMain, LblInfo));
    Build_Competition_Panel();
    Build_Events_Panel();
    Build_Dances_Panel();
    top->addWidget(FrmCompetition);
    top->addWidget(FrmEvents);
    top->addWidget(FrmDances, 1);
    top->addStretch();
    resize(760, 600);
    Open_Connection();
    Show_Panel(FrmCompetition, QStringLiteral("Competition Details"),
               QStringLiteral("Enter the information for this competition"), txtCompetitionName);
    // The main window's frame takes the focus as it shows the screen.
    QTimer::singleShot(0, txtCompetitionName, [this] { txtCompetitionName->setFocus(); });
}

frmWizard::~frmWizard() = default;

void frmWizard::Build_Competition_Panel()
{
    FrmCompetition = Frame(this, "FrmCompetition");
    txtCompetitionName = Box(FrmCompetition, "txtCompetitionName");
    txtCompetitionDate = Box(FrmCompetition, "txtCompetitionDate");
    txtCompetitionDate->setPlaceholderText(QStringLiteral("as it is to be printed, e.g. 4 July 2026"));
    txtcompetitionorganiser = Box(FrmCompetition, "txtcompetitionorganiser");
    txtorganiserrole = Box(FrmCompetition, "txtorganiserrole");
    txtvenue = Box(FrmCompetition, "txtvenue");
    txttown = Box(FrmCompetition, "txttown");
    txtaddress = Box(FrmCompetition, "txtaddress");
    CmdCompetitionNext = Button(FrmCompetition, "CmdCompetitionNext", QStringLiteral("&Next >"));
    CmdCompetitionCancel = Button(FrmCompetition, "CmdCompetitionCancel", QStringLiteral("&Cancel"));

    auto *form = new QFormLayout;
    form->addRow(QStringLiteral("Competition Name"), txtCompetitionName);
    form->addRow(QStringLiteral("Competition Date"), txtCompetitionDate);
    form->addRow(QStringLiteral("Organiser *"), txtcompetitionorganiser);
    form->addRow(QStringLiteral("Organiser Role *"), txtorganiserrole);
    form->addRow(QStringLiteral("Venue *"), txtvenue);
    form->addRow(QStringLiteral("Town *"), txttown);
    form->addRow(QStringLiteral("Organiser Address *"), txtaddress);
    auto *l = new QVBoxLayout(FrmCompetition);
    l->addLayout(form);
    l->addWidget(Note(QStringLiteral("* Only used in SOBHD Championship Report Form")));
    l->addSpacing(12);
    l->addLayout(Buttons(CmdCompetitionNext, CmdCompetitionCancel));

    for (QLineEdit *box : {txtCompetitionName, txtCompetitionDate})
        box->installEventFilter(this);
    connect(CmdCompetitionNext, &QPushButton::clicked, this, &frmWizard::CmdCompetitionNext_Click);
    connect(CmdCompetitionCancel, &QPushButton::clicked, this, &frmWizard::Cancel_Click);
}

void frmWizard::Build_Events_Panel()
{
    FrmEvents = Frame(this, "FrmEvents");
    txtGroupName = Box(FrmEvents, "txtGroupName");
    txtGroupCode = Box(FrmEvents, "txtGroupCode");
    lstDances = List(FrmEvents, "lstDances");
    lstDances->setFixedHeight(lstDances->fontMetrics().height() * 9 + 2 * lstDances->frameWidth());
    lblMade = Named(new QLabel(FrmEvents), "lblMade");
    lblMade->setWordWrap(true);
    lstSplitAge = List(FrmEvents, "lstSplitAge");
    lstSplitAge->addItems({QStringLiteral("No"), QStringLiteral("Yes!")});
    txtchampionshiptitle = Box(FrmEvents, "txtchampionshiptitle");
    lstopen = List(FrmEvents, "lstopen");
    lstopen->addItems({QStringLiteral("Open"), QStringLiteral("Closed!")});
    for (QListWidget *two : {lstSplitAge, lstopen})
        two->setFixedHeight(two->sizeHintForRow(0) * 2 + 2 * two->frameWidth() + 4);
    CmdGroupNext = Button(FrmEvents, "CmdGroupNext", QStringLiteral("&Next >"));
    CmdGroupCancel = Button(FrmEvents, "CmdGroupCancel", QStringLiteral("&Cancel"));

    auto *form = new QFormLayout;
    form->addRow(QStringLiteral("Age Group Name"), txtGroupName);
    form->addRow(Note(QStringLiteral("Age Group Code - Leave blank for system generated code!")), txtGroupCode);
    form->addRow(QStringLiteral("Dances Category"), lstDances);
    form->addRow(Note(QStringLiteral("Split Age Groups - Select \"Yes\" if you wish to split this group by age "
                                     "depending on entries")),
                 lstSplitAge);
    form->addRow(QStringLiteral("Championship Title"), txtchampionshiptitle);
    form->addRow(QStringLiteral("Open or Closed"), lstopen);
    form->addRow(QString(), Note(QStringLiteral("The title and Open or Closed are used only by a Championship or "
                                                "Premiership event.")));
    auto *l = new QVBoxLayout(FrmEvents);
    l->addWidget(lblMade);
    l->addLayout(form);
    l->addSpacing(12);
    l->addLayout(Buttons(CmdGroupNext, CmdGroupCancel));

    for (QLineEdit *box : {txtGroupName, txtGroupCode})
        box->installEventFilter(this);
    connect(lstDances, &QListWidget::currentRowChanged, this, &frmWizard::LstDances_Click);
    connect(CmdGroupNext, &QPushButton::clicked, this, &frmWizard::CmdGroupNext_Click);
    connect(CmdGroupCancel, &QPushButton::clicked, this, &frmWizard::Cancel_Click);
}

void frmWizard::Build_Dances_Panel()
{
    FrmDances = Frame(this, "FrmDances");
    List1 = List(FrmDances, "List1", QStringLiteral("Double click dance to add to selection"));
    List2 = List(FrmDances, "List2", QStringLiteral("Double click dance to remove from selection"));
    cmdDancesNext = Button(FrmDances, "cmdDancesNext", QStringLiteral("&Next >"));
    cmdDancesCancel = Button(FrmDances, "cmdDancesCancel", QStringLiteral("&Cancel"));

    auto *lists = new QHBoxLayout;
    lists->addLayout(Captioned(QStringLiteral("Available Dances"), List1));
    lists->addLayout(Captioned(QStringLiteral("Selected Dances"), List2));
    lblDanceNote = Named(Note(QString()), "lblDanceNote");
    auto *l = new QVBoxLayout(FrmDances);
    l->addWidget(lblDanceNote);
    l->addLayout(lists, 1);
    l->addLayout(Buttons(cmdDancesNext, cmdDancesCancel));

    // Enter on a dance works as a double click does.
    connect(List1, &QListWidget::itemActivated, this, &frmWizard::List1_DblClick);
    connect(List2, &QListWidget::itemActivated, this, &frmWizard::List2_DblClick);
    connect(cmdDancesNext, &QPushButton::clicked, this, [this] {
        if (More_Groups())
            Next_Group();
    });
    connect(cmdDancesCancel, &QPushButton::clicked, this, &frmWizard::Cancel_Click);
}

// The focus goes to the new panel before the old one hides, so that it never
// passes through a list (a list given the focus picks its first entry).
void frmWizard::Show_Panel(QFrame *panel, const QString &main, const QString &info, QWidget *focus)
{
    panel->show();
    focus->setFocus();
    for (QFrame *p : {FrmCompetition, FrmEvents, FrmDances})
        p->setVisible(p == panel);
    LblMain->setText(main);
    LblInfo->setText(info);
}

bool frmWizard::Required(QLineEdit *box, const QString &message)
{
    if (!box->text().isEmpty())
        return true;
    Msg_Box(message);
    box->setFocus();
    return false;
}

// The check a box gets when it is left and again on Next.
bool frmWizard::Box_Valid(QLineEdit *box)
{
    if (box == txtCompetitionName)
        return Required(box, QStringLiteral("Competition Name is required"));
    if (box == txtCompetitionDate)
        return Required(box, QStringLiteral("Competition Date is required"));
    if (box == txtGroupName)
        return Required(box, QStringLiteral("Age Group Name is required"));
    if (box == txtGroupCode && !txtGroupName->text().isEmpty()
        && Group_Code_Taken(conn(), Current_Competition_Id, txtGroupCode->text())) {
        Msg_Box(QStringLiteral("Group Code must be unique! Re-enter or leave blank for a system default code"));
        box->setFocus();
        return false;
    }
    return true;
}

bool frmWizard::eventFilter(QObject *watched, QEvent *event)
{
    auto *box = qobject_cast<QLineEdit *>(watched);
    if (box && event->type() == QEvent::FocusOut && !m_checking && box->isVisible()) {
        const Qt::FocusReason why = static_cast<QFocusEvent *>(event)->reason();
        QWidget *to = QApplication::focusWidget();
        // Leaving for a cancel button, another window or a menu is no move.
        const bool leaving = why == Qt::TabFocusReason || why == Qt::BacktabFocusReason || why == Qt::MouseFocusReason
                             || why == Qt::ShortcutFocusReason;
        const bool cancelling = to == CmdCompetitionCancel || to == CmdGroupCancel || to == cmdDancesCancel;
        if (leaving && !cancelling) {
            m_checking = true;
            // Checked once the focus has moved; a Next or Cancel that ran
            // meanwhile has checked or left the panel itself.
            QTimer::singleShot(0, this, [this, box, moves = m_moves] {
                try {
                    if (moves == m_moves && box->isVisible())
                        Box_Valid(box);
                } catch (const AppError &) {
                    Msg_Box(QStringLiteral("There was an internal error. Please close and try again"));
                }
                m_checking = false;
            });
        }
    }
    return Screen::eventFilter(watched, event);
}

void frmWizard::CmdCompetitionNext_Click()
{
    ++m_moves;
    if (!Box_Valid(txtCompetitionName) || !Box_Valid(txtCompetitionDate))
        return;
    try {
        Insert_Competition(conn(), {txtCompetitionName->text(), txtCompetitionDate->text(),
                                    txtcompetitionorganiser->text(), txtorganiserrole->text(), txtvenue->text(),
                                    txttown->text(), txtaddress->text()});
        Fill_LstDances();
        Show_Panel(FrmEvents, QStringLiteral("Event Details"), QStringLiteral("Enter the information for this event"),
                   txtGroupName);
        lstSplitAge->setCurrentRow(0);
        m_eventNo = 1;
        m_orderNo = 1;
    } catch (const AppError &) {
        Msg_Box(QStringLiteral("There was an internal error. Please close and try again"));
    }
}

void frmWizard::Fill_LstDances()
{
    const QSignalBlocker quiet(lstDances);
    lstDances->clear();
    m_codes.clear();
    for (const Wizard_Category &c : Wizard_Categories(conn(), Current_Competition_Id)) {
        lstDances->addItem(c.text);
        m_codes << c.code;
    }
    // Letters typed for the last event are forgotten (the empty search picks
    // an entry, so nothing is chosen only after it).
    lstDances->keyboardSearch(QString());
    lstDances->setCurrentRow(-1);
    lstDances->clearSelection();
    LstDances_Click();
}

void frmWizard::LstDances_Click()
{
    const QString text = lstDances->currentItem() && lstDances->currentItem()->isSelected()
                             ? lstDances->currentItem()->text()
                             : QString();
    const bool championship = text == QLatin1String("Premiership") || text == QLatin1String("Championship");
    txtchampionshiptitle->setEnabled(championship);
    lstopen->setEnabled(championship);
    if (championship) {
        lstopen->setCurrentRow(0);
    } else {
        txtchampionshiptitle->clear();
        lstopen->clearSelection();
        lstopen->setCurrentRow(-1);
    }
}

void frmWizard::CmdGroupNext_Click()
{
    ++m_moves;
    if (!Box_Valid(txtGroupName))
        return;
    try {
        if (!Box_Valid(txtGroupCode))
            return;
        const int pos = lstDances->currentItem() && lstDances->currentItem()->isSelected() ? lstDances->currentRow() : -1;
        if (pos < 0) {
            Msg_Box(QStringLiteral("You must select a Dance Category"));
            lstDances->setFocus();
            return;
        }
        if (lstDances->item(pos)->text() != Other_Category)
            return Make_Event_From_List();
        Make_Event_With_New_Category();
    } catch (const AppError &) {
        Msg_Box(QStringLiteral("There was an internal error. Please close and try again"));
    }
}

// The code typed, or the running event number when none was; the number
// goes up either way.
QString frmWizard::Take_Group_Code()
{
    if (txtGroupCode->text().isEmpty())
        txtGroupCode->setText(QString::number(m_eventNo));
    ++m_eventNo;
    return txtGroupCode->text();
}

void frmWizard::Make_Event_From_List()
{
    Wizard_Event e;
    e.code = Take_Group_Code();
    e.name = txtGroupName->text();
    e.category = m_codes.value(lstDances->currentRow());
    e.split = lstSplitAge->currentItem() ? lstSplitAge->currentItem()->text().left(1) : QStringLiteral("N");
    e.title = txtchampionshiptitle->text();
    e.type = lstopen->currentItem() && lstopen->isEnabled() ? lstopen->currentItem()->text().left(1) : QString();
    e.order = m_orderNo;
    Insert_Wizard_Event(conn(), Current_Competition_Id, e);
    Note_Made(e, lstDances->currentItem()->text());
    if (More_Groups())
        Next_Group();
}

void frmWizard::Make_Event_With_New_Category()
{
    Wizard_Event e;
    e.code = Take_Group_Code();
    e.name = txtGroupName->text();
    e.split = lstSplitAge->currentItem() ? lstSplitAge->currentItem()->text().left(1) : QStringLiteral("N");
    e.order = m_orderNo;
    m_newCode = Insert_Other_Event(conn(), Current_Competition_Id, e);
    Note_Made(e, QStringLiteral("its own dances"));
    lblDanceNote->setText(QStringLiteral("Choose the dances of \"") + e.name
                          + QStringLiteral("\": double click a dance (or press Enter on it) to move it to the other "
                                           "list. The selected dances are danced in the order they are listed."));
    List1->clear();
    List2->clear();
    for (const Dance_Item &d : Read_Available_Dances(conn(), Current_Competition_Id, m_newCode)) {
        auto *item = new QListWidgetItem(d.name, List1);
        item->setData(Qt::UserRole, d.id);
    }
    List1->setCurrentRow(0);
    Show_Panel(FrmDances, QStringLiteral("Dance Details"), QStringLiteral("Select dances for this event"), List1);
}

// The events made so far stand over the event panel.
void frmWizard::Note_Made(const Wizard_Event &e, const QString &dances)
{
    m_made << e.name + QStringLiteral(" (code ") + e.code.toUpper() + QStringLiteral(", ") + dances
                  + QLatin1Char(')');
    lblMade->setText(QStringLiteral("Events made so far: ") + m_made.join(QStringLiteral("; ")));
}

// On No the wizard is done and closes.
bool frmWizard::More_Groups()
{
    if (Msg_Box(More_Groups_Text, vbYesNo | vbQuestion, QStringLiteral("Deletion Confirmation")) == vbYes)
        return true;
    Unload();
    return false;
}

void frmWizard::Next_Group()
{
    txtGroupName->clear();
    txtGroupCode->clear();
    txtchampionshiptitle->clear();
    Fill_LstDances();
    Show_Panel(FrmEvents, QStringLiteral("Event Details"), QStringLiteral("Enter the information for this event"),
               txtGroupName);
    lstSplitAge->setCurrentRow(0);
    ++m_orderNo;
}

void frmWizard::List1_DblClick()
{
    QListWidgetItem *item = List1->currentItem();
    if (!item)
        return;
    try {
        Add_Category_Dance(conn(), Current_Competition_Id, m_newCode, item->data(Qt::UserRole).toInt(), List2->count());
        Move_Dance(List1, List2, item);
    } catch (const AppError &) {
        Msg_Box(QStringLiteral("There was an internal error. Please close and try again"));
    }
}

void frmWizard::List2_DblClick()
{
    QListWidgetItem *item = List2->currentItem();
    if (!item)
        return;
    try {
        Remove_Category_Dance(conn(), Current_Competition_Id, m_newCode, item->data(Qt::UserRole).toInt());
        Move_Dance(List2, List1, item);
    } catch (const AppError &) {
        Msg_Box(QStringLiteral("There was an internal error. Please close and try again"));
    }
}

void frmWizard::Cancel_Click()
{
    ++m_moves;
    if (Msg_Box(QStringLiteral("Do you want to exit Wizard?"), vbYesNo | vbQuestion, QStringLiteral("Exit Confirmation"))
        != vbYes)
        return;
    if (Msg_Box(QStringLiteral("Do you want to delete all data for this competition '") + txtCompetitionName->text()
                    + QStringLiteral("'?"),
                vbYesNo | vbQuestion, QStringLiteral("Deletion Confirmation"))
        == vbYes) {
        try {
            Delete_Wizard_Competition(conn(), Current_Competition_Id);
        } catch (const AppError &) {
            Msg_Box(QStringLiteral("There was an internal error. Please close and try again"));
        }
    }
    Unload();
}
