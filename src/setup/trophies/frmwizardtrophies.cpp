#include "frmwizardtrophies.h"

#include "setup/panel_widgets.h"

#include "core/contacts.h"
#include "core/dialogs.h"
#include "core/errors.h"
#include "core/globals.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QTimer>

using namespace Panel;

frmwizardtrophies::frmwizardtrophies(QWidget *parent)
    : Screen(QStringLiteral("frmwizardtrophies"), QStringLiteral("Trophies Wizard"), parent)
{
    auto *top = Column(this, 1000);
    top->addWidget(Heading(this, LblMain, LblInfo));
    Build_First_Page();
    top->addWidget(frmnew, 1);
    m_details[0] = {Trophy_Page::Groups, nullptr, nullptr, nullptr, QStringLiteral("Age Groups"),
                    QStringLiteral("Select the age groups you wish to include in this trophy"),
                    QStringLiteral("Do you wish remove all selected age groups from this trophy?"),
                    QStringLiteral("Points of the included age groups count towards the trophy.")};
    m_details[1] = {Trophy_Page::Dances, nullptr, nullptr, nullptr, QStringLiteral("Dances"),
                    QStringLiteral("Select the dances you wish to include in this trophy"),
                    QStringLiteral("Do you wish remove all selected dances from this trophy?"),
                    QStringLiteral("The dances of the included age groups are offered; only the included dances "
                                   "count.")};
    m_details[2] = {Trophy_Page::Fields, nullptr, nullptr, nullptr, QStringLiteral("Custom Values"),
                    QStringLiteral("Select the custom values you wish to include in this trophy"),
                    QStringLiteral("Do you wish remove all selected custom values from this trophy?"),
                    QStringLiteral("The values come from the dancers' Field1 to Field4. With values included only "
                                   "the dancers who have one of them count; with none, every dancer counts.")};
    top->addWidget(Build_Detail(m_details[0], "frmgroups", "lstgroups", "lstincgroups", "CmdAdd1", "CmdDel1",
                                "CmdReset", "cmdprev0", "CmdNext1", QStringLiteral("&Next >"),
                                QStringLiteral("A&dd Group >"), QStringLiteral("< Re&move Group"),
                                QStringLiteral("Age Groups")),
                   1);
    top->addWidget(Build_Detail(m_details[1], "frmdances", "lstdances", "lstincdances", "cmdadd2", "cmddel2",
                                "cmdreset2", "cmdprev", "cmdnext2", QStringLiteral("&Next >"),
                                QStringLiteral("A&dd Dance >"), QStringLiteral("< Re&move Dance"),
                                QStringLiteral("Dances")),
                   1);
    top->addWidget(Build_Detail(m_details[2], "frmcustom", "lstcustom", "lstinccustom", "cmdadd3", "cmddel3",
                                "cmdreset3", "cmdprev3", "cmdnext3", QStringLiteral("F&inish"),
                                QStringLiteral("A&dd Value >"), QStringLiteral("< Re&move Value"),
                                QStringLiteral("Custom Values")),
                   1);
    resize(760, 560);
    if (Open_Connection())
        Read_Trophies(-1);
    Show_Page(frmnew, QStringLiteral("Overall Trophies"),
              QStringLiteral("Select the overall trophy or click Create New to create one."));
    // The main window's frame takes the focus as it shows the screen.
    QTimer::singleShot(0, lstselect, [this] { lstselect->setFocus(); });
}

frmwizardtrophies::~frmwizardtrophies() = default;

void frmwizardtrophies::Build_First_Page()
{
    frmnew = Frame(this, "frmnew");
    lstselect = List(frmnew, "lstselect");
    txtname = Box(frmnew, "txtname");
    txtname->setReadOnly(true);
    txtname->setPlaceholderText(QStringLiteral("Click Create New to name a new trophy"));
    cmdcreate = Button(frmnew, "cmdcreate", QStringLiteral("&Create New"));
    cmddelete0 = Button(frmnew, "cmddelete0", QStringLiteral("&Delete"));
    cmdnext0 = Button(frmnew, "cmdnext0", QStringLiteral("&Next >"));

    auto *right = new QVBoxLayout;
    auto *nameLabel = new QLabel(QStringLiteral("Trophy Name"));
    nameLabel->setBuddy(txtname);
    right->addWidget(nameLabel);
    right->addWidget(txtname);
    right->addWidget(cmdcreate);
    right->addWidget(cmddelete0);
    right->addStretch();
    right->addWidget(cmdnext0);
    auto *l = new QHBoxLayout(frmnew);
    l->addLayout(Captioned(QStringLiteral("Select Trophy"), lstselect), 2);
    l->addLayout(right, 1);

    connect(lstselect, &QListWidget::currentRowChanged, this, &frmwizardtrophies::lstselect_Click);
    connect(cmdcreate, &QPushButton::clicked, this, &frmwizardtrophies::cmdcreate_Click);
    connect(cmdnext0, &QPushButton::clicked, this, &frmwizardtrophies::cmdnext0_Click);
    connect(cmddelete0, &QPushButton::clicked, this, &frmwizardtrophies::cmddelete0_Click);
}

QFrame *frmwizardtrophies::Build_Detail(Detail &d, const char *frame, const char *available, const char *included,
                                        const char *add, const char *del, const char *reset, const char *prev,
                                        const char *next, const QString &nextCaption, const QString &addCaption,
                                        const QString &delCaption, const QString &what)
{
    const int index = static_cast<int>(&d - m_details);
    d.frame = Frame(this, frame);
    d.available = List(d.frame, available);
    d.included = List(d.frame, included);
    auto *addButton = Button(d.frame, add, addCaption);
    auto *delButton = Button(d.frame, del, delCaption);
    auto *resetButton = Button(d.frame, reset, QStringLiteral("< Re&set >"));
    resetButton->setToolTip(QStringLiteral("Remove everything from the included list"));
    auto *prevButton = Button(d.frame, prev, QStringLiteral("< &Previous"));
    auto *nextButton = Button(d.frame, next, nextCaption);

    auto *middle = new QVBoxLayout;
    middle->addStretch();
    middle->addWidget(addButton);
    middle->addWidget(delButton);
    middle->addWidget(resetButton);
    middle->addStretch();
    auto *lists = new QHBoxLayout;
    lists->addLayout(Captioned(QStringLiteral("Available ") + what, d.available), 1);
    lists->addLayout(middle);
    lists->addLayout(Captioned(QStringLiteral("Included ") + what, d.included), 1);
    auto *moves = new QHBoxLayout;
    moves->addStretch();
    moves->addWidget(prevButton);
    moves->addWidget(nextButton);
    auto *hint = new QLabel(d.hint, d.frame);
    hint->setWordWrap(true);
    auto *l = new QVBoxLayout(d.frame);
    l->addWidget(hint);
    l->addLayout(lists, 1);
    l->addLayout(moves);

    connect(addButton, &QPushButton::clicked, this, [this, &d] { Move_Items(d.available, d.included); });
    connect(delButton, &QPushButton::clicked, this, [this, &d] { Move_Items(d.included, d.available); });
    // A double click (or Enter) on an entry moves it across too.
    connect(d.available, &QListWidget::itemActivated, this, [this, &d] { Move_Items(d.available, d.included); });
    connect(d.included, &QListWidget::itemActivated, this, [this, &d] { Move_Items(d.included, d.available); });
    connect(resetButton, &QPushButton::clicked, this, [this, index] { Reset_Detail(index); });
    connect(prevButton, &QPushButton::clicked, this, [this, index] { Leave_Detail(index, index - 1); });
    connect(nextButton, &QPushButton::clicked, this, [this, index] { Leave_Detail(index, index + 1); });
    return d.frame;
}

void frmwizardtrophies::Show_Page(QFrame *frame, const QString &main, const QString &info)
{
    frmnew->setVisible(frame == frmnew);
    for (const Detail &d : m_details)
        d.frame->setVisible(d.frame == frame);
    LblMain->setText(main);
    LblInfo->setText(info);
}

void frmwizardtrophies::Error_Box()
{
    Msg_Box(QStringLiteral("There was an error. Please take an export of this competition and email it to ")
            + QLatin1String(Contacts::Support_Email) + QStringLiteral(" for help"));
}

void frmwizardtrophies::Read_Trophies(int select)
{
    const QSignalBlocker quiet(lstselect);
    lstselect->clear();
    m_ids.clear();
    for (const Trophy &t : ::Read_Trophies(conn(), Current_Competition_Id)) {
        lstselect->addItem(t.name);
        m_ids << t.id;
    }
    lstselect->setCurrentRow(m_ids.indexOf(select));
}

void frmwizardtrophies::lstselect_Click()
{
    const int pos = lstselect->currentRow();
    if (pos < 0)
        return;
    m_trophy = m_ids.value(pos);
    m_creating = false;
    txtname->setReadOnly(true);
    txtname->setText(lstselect->item(pos)->text());
}

void frmwizardtrophies::cmdcreate_Click()
{
    txtname->clear();
    txtname->setReadOnly(false);
    m_creating = true;
    txtname->setFocus();
}

void frmwizardtrophies::cmdnext0_Click()
{
    if (txtname->text().isEmpty()) {
        Msg_Box(QStringLiteral("You must enter a trophy name"));
        return;
    }
    try {
        if (m_creating) {
            m_trophy = Create_Trophy(conn(), Current_Competition_Id, txtname->text());
            Read_Trophies(m_trophy);
            m_creating = false;
            txtname->setReadOnly(true);
        }
        for (const Detail &d : m_details) {
            d.available->clear();
            d.included->clear();
        }
        Open_Detail(0);
    } catch (const AppError &) {
        Error_Box();
    }
}

void frmwizardtrophies::cmddelete0_Click()
{
    if (lstselect->currentRow() < 0)
        return;
    if (Msg_Box(QStringLiteral("Do you wish to delete this trophy?"), vbYesNo | vbQuestion,
                QStringLiteral("Deletion Confirmation"))
        != vbYes)
        return;
    try {
        Delete_Trophy(conn(), m_trophy);
        m_trophy = 0;
        txtname->clear();
        Read_Trophies(-1);
    } catch (const AppError &) {
        Error_Box();
    }
}

// Fills a detail page from the store: what the trophy holds on the right,
// the rest of what the page offers on the left.
void frmwizardtrophies::Open_Detail(int index)
{
    Detail &d = m_details[index];
    d.available->clear();
    d.included->clear();
    const QList<Trophy_Item> in = Included_Items(conn(), Current_Competition_Id, m_trophy, d.page);
    QStringList keys;
    for (const Trophy_Item &i : in) {
        auto *item = new QListWidgetItem(i.text, d.included);
        item->setData(Qt::UserRole, i.key);
        keys << i.key.toUpper();
    }
    for (const Trophy_Item &i : Available_Items(conn(), Current_Competition_Id, m_trophy, d.page))
        if (!keys.contains(i.key.toUpper()))
            (new QListWidgetItem(i.text, d.available))->setData(Qt::UserRole, i.key);
    d.available->setCurrentRow(0);
    d.included->setCurrentRow(0);
    Show_Page(d.frame, d.main, d.info);
    d.available->setFocus();
}

void frmwizardtrophies::Move_Items(QListWidget *from, QListWidget *to)
{
    QListWidgetItem *item = from->currentItem();
    if (!item)
        return;
    to->addItem(from->takeItem(from->row(item)));
    to->setCurrentItem(item);
}

bool frmwizardtrophies::Save_Detail(int index)
{
    const Detail &d = m_details[index];
    QStringList keys;
    for (int i = 0; i < d.included->count(); ++i)
        keys << d.included->item(i)->data(Qt::UserRole).toString();
    try {
        Save_Page(conn(), m_trophy, d.page, keys);
        return true;
    } catch (const AppError &) {
        Error_Box();
        return false;
    }
}

void frmwizardtrophies::Leave_Detail(int index, int to)
{
    if (!Save_Detail(index))
        return;
    try {
        if (to < 0) {
            Read_Trophies(m_trophy);
            Show_Page(frmnew, QStringLiteral("Overall Trophies"),
                      QStringLiteral("Select the overall trophy or click Create New to create one."));
        } else if (to > 2) {
            Show_Timed_Box(QStringLiteral("Changes Saved!"), QStringLiteral("Confirmation"), 1000);
            Read_Trophies(m_trophy);
            Show_Page(frmnew, QStringLiteral("Trophies"), QStringLiteral("Select the trophy you wish to manage"));
            lstselect->setFocus();
        } else {
            Open_Detail(to);
        }
    } catch (const AppError &) {
        Error_Box();
    }
}

void frmwizardtrophies::Reset_Detail(int index)
{
    const Detail &d = m_details[index];
    if (Msg_Box(d.resetQuestion, vbYesNo | vbQuestion, QStringLiteral("Deletion Confirmation")) != vbYes)
        return;
    try {
        Reset_Page(conn(), m_trophy, d.page);
        Open_Detail(index);
    } catch (const AppError &) {
        Error_Box();
    }
}
