#include "frmRegistration.h"
#include "desk.h"
#include "status_pictures.h"

#include "core/contacts.h"
#include "core/dialogs.h"
#include "core/errors.h"
#include "core/globals.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int Picture_Size = 40;

QLineEdit *Make_Box(QWidget *parent, const char *name)
{
    auto *box = new QLineEdit(parent);
    box->setObjectName(QLatin1String(name));
    return box;
}

QPushButton *Make_Button(QWidget *parent, const char *name, const QString &caption, const QString &tip = QString())
{
    auto *b = new QPushButton(caption, parent);
    b->setObjectName(QLatin1String(name));
    b->setToolTip(tip);
    return b;
}

QLabel *Make_Picture(QWidget *parent, const char *name, const QPixmap &pix, const QString &tip)
{
    auto *l = new QLabel(parent);
    l->setObjectName(QLatin1String(name));
    l->setPixmap(pix);
    l->setToolTip(tip);
    return l;
}

} // namespace

frmRegistration::frmRegistration(QWidget *parent)
    : Screen(QStringLiteral("frmRegistration"), App_Title + QStringLiteral(" - Registration"), parent)
{
    Build_Search();
    Build_Entry();
    auto *columns = new QHBoxLayout(this);
    columns->setContentsMargins(24, 16, 24, 16);
    columns->setSpacing(24);
    columns->addWidget(findChild<QGroupBox *>(QStringLiteral("frm_search")), 2);
    columns->addWidget(frm_reg, 3);
    // The entry keeps its place while hidden, so the desk does not jump.
    QSizePolicy keep = frm_reg->sizePolicy();
    keep.setRetainSizeWhenHidden(true);
    frm_reg->setSizePolicy(keep);
    // Whoever gives the desk focus gives it to the number box.
    setFocusProxy(search_num);
    setWindowState(windowState() | Qt::WindowMaximized);
    Open_Connection();
    Reset_Desk();
}

void frmRegistration::Build_Search()
{
    auto *frame = new QGroupBox(QStringLiteral("Search"), this);
    frame->setObjectName(QStringLiteral("frm_search"));
    search_num = Make_Box(frame, "search_num");
    search_firstname = Make_Box(frame, "search_firstname");
    search_lastname = Make_Box(frame, "search_lastname");
    cmd_search = Make_Button(frame, "cmd_search", QStringLiteral("Search"), QStringLiteral("Perform Search"));
    cmd_cancel = Make_Button(frame, "cmd_cancel", QStringLiteral("Cancel"), QStringLiteral("Cancel Search"));
    lbl_results = new QLabel(QStringLiteral("Search Results"), frame);
    lbl_results->setObjectName(QStringLiteral("lbl_results"));
    lst_results = new QListWidget(frame);
    lst_results->setObjectName(QStringLiteral("lst_results"));
    lst_results->installEventFilter(this);
    cmd_reg_all = Make_Button(frame, "cmd_reg_all", QStringLiteral("Register All"),
                              QStringLiteral("Register all dancers with judges points"));

    auto *form = new QFormLayout;
    form->addRow(QStringLiteral("Number"), search_num);
    form->addRow(QStringLiteral("Forename"), search_firstname);
    form->addRow(QStringLiteral("Surname"), search_lastname);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(cmd_search);
    buttons->addWidget(cmd_cancel);
    buttons->addStretch(1);
    auto *v = new QVBoxLayout(frame);
    v->addLayout(form);
    v->addLayout(buttons);
    v->addWidget(lbl_results);
    v->addWidget(lst_results, 1);
    v->addStretch(0);
    v->addWidget(cmd_reg_all, 0, Qt::AlignLeft);

    connect(cmd_search, &QPushButton::clicked, this, &frmRegistration::cmd_search_Click);
    connect(cmd_cancel, &QPushButton::clicked, this, &frmRegistration::cmd_cancel_Click);
    connect(cmd_reg_all, &QPushButton::clicked, this, &frmRegistration::cmd_reg_all_Click);
    connect(lst_results, &QListWidget::itemClicked, this,
            [this](QListWidgetItem *item) { lst_results_Click(lst_results->row(item)); });
    for (QLineEdit *box : {search_num, search_firstname, search_lastname})
        connect(box, &QLineEdit::textEdited, this, [this] { m_searchEdited = true; });
}

void frmRegistration::Build_Entry()
{
    frm_reg = new QGroupBox(QStringLiteral("Competitor"), this);
    frm_reg->setObjectName(QStringLiteral("frm_reg"));
    update_num = Make_Box(frm_reg, "update_num");
    // The number finds the row to correct; it is not itself corrected here.
    update_num->setReadOnly(true);
    update_firstname = Make_Box(frm_reg, "update_firstname");
    update_lastname = Make_Box(frm_reg, "update_lastname");
    update_address1 = Make_Box(frm_reg, "update_address1");
    update_address2 = Make_Box(frm_reg, "update_address2");
    update_town = Make_Box(frm_reg, "update_town");
    update_age = Make_Box(frm_reg, "update_age");
    update_teacher = Make_Box(frm_reg, "update_teacher");
    update_notes = Make_Box(frm_reg, "update_notes");
    img_reg_yes = Make_Picture(frm_reg, "img_reg_yes", Tick_Picture(Picture_Size), QStringLiteral("Registered"));
    img_reg_no = Make_Picture(frm_reg, "img_reg_no", Cross_Picture(Picture_Size), QStringLiteral("Not Registered"));
    img_amber = Make_Picture(frm_reg, "img_amber", Amber_Picture(Picture_Size), QStringLiteral("No Card Shown"));
    lbl_no_card = new QLabel(QStringLiteral("No Card Shown"), frm_reg);
    lbl_no_card->setObjectName(QStringLiteral("lbl_no_card"));
    cmd_register = Make_Button(frm_reg, "cmd_register", QStringLiteral("Register"));
    cmd_no_card = Make_Button(frm_reg, "cmd_no_card", QStringLiteral("No Card Shown"));
    cmd_unreg = Make_Button(frm_reg, "cmd_unreg", QStringLiteral("Unregister"));
    cmd_save = Make_Button(frm_reg, "cmd_save", QStringLiteral("Save Changes"));

    auto *form = new QFormLayout;
    form->addRow(QStringLiteral("Number"), update_num);
    form->addRow(QStringLiteral("Forename"), update_firstname);
    form->addRow(QStringLiteral("Surname"), update_lastname);
    form->addRow(QStringLiteral("Address 1"), update_address1);
    form->addRow(QStringLiteral("Address 2"), update_address2);
    form->addRow(QStringLiteral("Town"), update_town);
    form->addRow(QStringLiteral("Age"), update_age);
    form->addRow(QStringLiteral("Teacher"), update_teacher);
    form->addRow(QStringLiteral("Notes"), update_notes);
    auto *status = new QHBoxLayout;
    for (QWidget *w : {static_cast<QWidget *>(img_reg_yes), static_cast<QWidget *>(img_reg_no),
                       static_cast<QWidget *>(img_amber), static_cast<QWidget *>(lbl_no_card)})
        status->addWidget(w);
    status->addStretch(1);
    auto *buttons = new QHBoxLayout;
    for (QPushButton *b : {cmd_register, cmd_no_card, cmd_unreg, cmd_save})
        buttons->addWidget(b);
    buttons->addStretch(1);
    auto *v = new QVBoxLayout(frm_reg);
    v->addLayout(form);
    v->addLayout(status);
    v->addLayout(buttons);
    v->addStretch(1);

    for (QLineEdit *box : frm_reg->findChildren<QLineEdit *>())
        connect(box, &QLineEdit::textEdited, this, [this] { m_dirty = true; });
    connect(cmd_register, &QPushButton::clicked, this, &frmRegistration::cmd_register_Click);
    connect(cmd_no_card, &QPushButton::clicked, this, &frmRegistration::cmd_no_card_Click);
    connect(cmd_unreg, &QPushButton::clicked, this, &frmRegistration::cmd_unreg_Click);
    connect(cmd_save, &QPushButton::clicked, this, &frmRegistration::cmd_save_Click);
}

void frmRegistration::Reset_Desk()
{
    frm_reg->hide();
    search_num->clear();
    search_firstname->clear();
    search_lastname->clear();
    lst_results->clear();
    m_numbers.clear();
    lst_results->hide();
    lbl_results->hide();
    m_searchEdited = false;
    search_num->setFocus();
}

void frmRegistration::cmd_search_Click()
{
    const Desk_Search search{search_num->text(), search_firstname->text(), search_lastname->text()};
    if (!Valid_Desk_Number(search.number)) {
        Msg_Box(QStringLiteral("You must enter a valid competitor number!"), vbExclamation,
                QStringLiteral("Validation Error"));
        search_num->setFocus();
        return;
    }
    try {
        m_dirty = false;
        const QList<Desk_Hit> hits = Desk_Find(conn(), Current_Competition_Id, search);
        if (hits.size() == 1) {
            m_number = hits.first().number;
            Show_Dancer();
        } else if (hits.size() > 1) {
            // A new list: the dancer shown before is no longer the one at the desk.
            frm_reg->hide();
            lst_results->clear();
            m_numbers.clear();
            for (const Desk_Hit &h : hits) {
                lst_results->addItem(h.text);
                m_numbers << h.number;
            }
            lbl_results->show();
            lst_results->show();
        } else {
            Msg_Box(QStringLiteral("No competitors found!"));
            search_num->setFocus();
        }
    } catch (const AppError &) {
        Desk_Failure();
    }
}

void frmRegistration::cmd_cancel_Click()
{
    Reset_Desk();
}

void frmRegistration::lst_results_Click(int row)
{
    if (row < 0 || row >= m_numbers.size())
        return;
    m_number = m_numbers.at(row);
    try {
        Show_Dancer();
    } catch (const AppError &) {
        Desk_Failure();
    }
}

void frmRegistration::Show_Dancer()
{
    const Desk_Entry e = Read_Desk_Entry(conn(), Current_Competition_Id, m_number);
    update_num->setText(QString::number(e.number));
    update_firstname->setText(e.forename);
    update_lastname->setText(e.surname);
    update_address1->setText(e.address1);
    update_address2->setText(e.address2);
    update_town->setText(e.town);
    update_age->setText(e.age);
    update_teacher->setText(e.teacher);
    update_notes->setText(e.notes);
    img_reg_no->setVisible(e.registered.isNull());
    img_reg_yes->setVisible(!e.registered.isNull() && e.registered.toInt() == 1);
    const bool noCard = !e.registered.isNull() && e.registered.toInt() == 0;
    img_amber->setVisible(noCard);
    lbl_no_card->setVisible(noCard);
    frm_reg->show();
    // The boxes hold this dancer now; edits of another are gone.
    m_dirty = false;
    m_searchEdited = false;
    cmd_register->setFocus();
}

void frmRegistration::Save_Work()
{
    Desk_Entry e;
    e.number = m_number;
    e.forename = update_firstname->text();
    e.surname = update_lastname->text();
    e.address1 = update_address1->text();
    e.address2 = update_address2->text();
    e.town = update_town->text();
    e.age = update_age->text();
    e.teacher = update_teacher->text();
    e.notes = update_notes->text();
    Save_Desk_Entry(conn(), Current_Competition_Id, e);
    m_dirty = false;
}

void frmRegistration::Sign_In(const QVariant &state, const QString &message)
{
    try {
        if (m_dirty
            && Msg_Box(QStringLiteral("Do you want to save your changes? "), vbYesNo + vbQuestion,
                       QStringLiteral("Save Changes Confirmation"))
                   == vbYes)
            Save_Work();
        Set_Registered(conn(), Current_Competition_Id, m_number, state);
        Show_Timed_Box(message, QStringLiteral("Confirmation"), 600);
        Reset_Desk();
    } catch (const AppError &) {
        Desk_Failure();
    }
}

void frmRegistration::cmd_register_Click()
{
    Sign_In(1, QStringLiteral("Registration Complete!"));
}

void frmRegistration::cmd_no_card_Click()
{
    Sign_In(0, QStringLiteral("Registration Complete!"));
}

void frmRegistration::cmd_unreg_Click()
{
    Sign_In(QVariant(), QStringLiteral("Unregister Complete!"));
}

void frmRegistration::cmd_save_Click()
{
    try {
        Save_Work();
        Msg_Box(QStringLiteral("Save Complete!"));
        Reset_Desk();
    } catch (const AppError &) {
        Desk_Failure();
    }
}

void frmRegistration::cmd_reg_all_Click()
{
    try {
        if (Msg_Box(QStringLiteral("This will register all dancers who have judges points. Do you want to proceed? "),
                    vbYesNo + vbQuestion, QStringLiteral("Registration Confirmation"))
            != vbYes)
            return;
        Register_All(conn(), Current_Competition_Id);
    } catch (const AppError &) {
        Desk_Failure();
    }
}

void frmRegistration::Desk_Failure()
{
    Msg_Box(QStringLiteral("An error occured. Please email ") + QLatin1String(Contacts::Support_Email), vbCritical);
}

void frmRegistration::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        Screen::keyPressEvent(event);
        return;
    }
    event->accept();
    if (auto *button = qobject_cast<QPushButton *>(focusWidget())) {
        button->click();
        return;
    }
    if (frm_reg->isVisible() && !m_searchEdited)
        cmd_register_Click();
    else
        cmd_search_Click();
}

bool frmRegistration::eventFilter(QObject *watched, QEvent *event)
{
    // Enter on the result list shows the dancer under the cursor, and no more.
    if (watched == lst_results && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            lst_results_Click(lst_results->currentRow());
            return true;
        }
    }
    return Screen::eventFilter(watched, event);
}
