#include "frmCategories.h"

#include "core/contacts.h"
#include "core/dialogs.h"
#include "core/globals.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

const QString frmCategories::Support_Address = QLatin1String(Contacts::Support_Email);

namespace {

// The first item that starts with the text, without regard to case; -1 if none.
int ListBoxFindString(QListWidget *list, const QString &text, int start = 0)
{
    for (int i = qMax(0, start); i < list->count(); ++i)
        if (list->item(i)->text().startsWith(text, Qt::CaseInsensitive))
            return i;
    return -1;
}

void Fill(QListWidget *list, const QList<Dance_Item> &dances)
{
    for (const Dance_Item &d : dances) {
        auto *item = new QListWidgetItem(d.name, list);
        item->setData(Qt::UserRole, d.id);
    }
}

QListWidget *Make_List(QWidget *parent, const char *name, const char *tip)
{
    auto *l = new QListWidget(parent);
    l->setObjectName(QLatin1String(name));
    l->setToolTip(QLatin1String(tip));
    return l;
}

QPushButton *Make_Button(QWidget *parent, const char *name, const QString &caption, const char *tip)
{
    auto *b = new QPushButton(caption, parent);
    b->setObjectName(QLatin1String(name));
    b->setToolTip(QLatin1String(tip));
    return b;
}

} // namespace

frmCategories::frmCategories(QWidget *parent)
    : Screen(QStringLiteral("frmCategories"), App_Title + QStringLiteral(" - Dance Categories"), parent)
{
    Build_Controls();

    List1->setEnabled(false);
    List2->setEnabled(false);
    cmdDel->setEnabled(false);
    CmdEdit->setEnabled(false);
    CmdNew->setEnabled(true);
    setWindowState(windowState() | Qt::WindowMaximized);
    if (Open_Connection())
        Read_Categories();
}

frmCategories::~frmCategories() = default;

void frmCategories::Build_Controls()
{
    LstSections = Make_List(this, "LstSections", "Select Category");
    List1 = Make_List(this, "List1", "Double click dance to add to selection");
    List2 = Make_List(this, "List2", "Double click dance to remove from selection");
    cmd_up = Make_Button(this, "cmd_up", QString(), "move dance up order");
    cmd_up->setIcon(style()->standardIcon(QStyle::SP_ArrowUp));
    cmd_down = Make_Button(this, "cmd_down", QString(), "move dance down order");
    cmd_down->setIcon(style()->standardIcon(QStyle::SP_ArrowDown));
    CmdNew = Make_Button(this, "CmdNew", QStringLiteral("&New"), "Add New Category");
    CmdEdit = Make_Button(this, "CmdEdit", QStringLiteral("&Edit"), "Edit Category");
    cmdDel = Make_Button(this, "cmdDel", QStringLiteral("&Delete"), "Delete Category");

    auto *cats = new QGroupBox(QStringLiteral("Dance Categories"), this);
    auto *catsLayout = new QVBoxLayout(cats);
    catsLayout->addWidget(LstSections);
    auto *catButtons = new QHBoxLayout;
    catButtons->addWidget(CmdNew);
    catButtons->addWidget(CmdEdit);
    catButtons->addWidget(cmdDel);
    catsLayout->addLayout(catButtons);

    auto *available = new QGroupBox(QStringLiteral("Available Dances"), this);
    (new QVBoxLayout(available))->addWidget(List1);
    auto *selected = new QGroupBox(QStringLiteral("Selected Dances"), this);
    auto *selLayout = new QHBoxLayout(selected);
    selLayout->addWidget(List2);
    auto *moves = new QVBoxLayout;
    moves->addStretch();
    moves->addWidget(cmd_up);
    moves->addWidget(cmd_down);
    moves->addStretch();
    selLayout->addLayout(moves);

    FrmEdit = new QGroupBox(QStringLiteral("Add/ Edit Categories"), this);
    FrmEdit->setObjectName(QStringLiteral("FrmEdit"));
    TxtID = new QLineEdit(FrmEdit);
    TxtID->setObjectName(QStringLiteral("TxtID"));
    TxtSection = new QLineEdit(FrmEdit);
    TxtSection->setObjectName(QStringLiteral("TxtSection"));
    CmdSave = Make_Button(FrmEdit, "CmdSave", QStringLiteral("&Save"), "Save Dance Category");
    CmdCancel = Make_Button(FrmEdit, "CmdCancel", QStringLiteral("&Cancel"), "Cancel Changes");
    auto *edit = new QGridLayout(FrmEdit);
    int row = 0;
    auto hint = [&](const QString &text) {
        auto *l = new QLabel(text, FrmEdit);
        l->setWordWrap(true);
        edit->addWidget(l, row++, 0, 1, 2);
    };
    hint(QStringLiteral("Enter or edit the dance category details."));
    edit->addWidget(new QLabel(QStringLiteral("ID"), FrmEdit), row, 0);
    edit->addWidget(TxtID, row++, 1);
    edit->addWidget(new QLabel(QStringLiteral("Category"), FrmEdit), row, 0);
    edit->addWidget(TxtSection, row++, 1);
    hint(QStringLiteral("The ID field should contain your unique Identifier for this Category. i.e. Premier National "
                        "Dances may have ID \"PND\""));
    hint(QStringLiteral("Please note that the category ID should be unique for this competition!"));
    hint(QStringLiteral("Categories \"C\" - Championship and \"H\" - Highland are included by default"));
    auto *editButtons = new QHBoxLayout;
    editButtons->addWidget(CmdSave);
    editButtons->addWidget(CmdCancel);
    edit->addLayout(editButtons, row++, 0, 1, 2);
    edit->setRowStretch(row, 1);
    FrmEdit->hide();

    auto *top = new QHBoxLayout(this);
    top->addWidget(cats, 3);
    top->addWidget(available, 3);
    top->addWidget(selected, 3);
    top->addWidget(FrmEdit, 3);

    connect(LstSections, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0)
            LstSections_Click();
    });
    connect(List1, &QListWidget::itemDoubleClicked, this, &frmCategories::List1_DblClick);
    connect(List2, &QListWidget::itemDoubleClicked, this, &frmCategories::List2_DblClick);
    connect(cmd_up, &QPushButton::clicked, this, &frmCategories::cmd_up_Click);
    connect(cmd_down, &QPushButton::clicked, this, &frmCategories::cmd_down_Click);
    connect(CmdNew, &QPushButton::clicked, this, &frmCategories::CmdNew_Click);
    connect(CmdEdit, &QPushButton::clicked, this, &frmCategories::CmdEdit_Click);
    connect(CmdCancel, &QPushButton::clicked, this, &frmCategories::CmdCancel_Click);
    connect(CmdSave, &QPushButton::clicked, this, &frmCategories::CmdSave_Click);
    connect(cmdDel, &QPushButton::clicked, this, &frmCategories::cmdDel_Click);
}

void frmCategories::Read_Categories()
{
    const QSignalBlocker quiet(LstSections);
    LstSections->clear();
    m_codes.clear();
    for (const Category_Item &c : ::Read_Categories(conn(), Current_Competition_Id)) {
        LstSections->addItem(c.name);
        m_codes << c.code;
    }
    if (LstSections->count() > 0) {
        LstSections->setCurrentRow(0);
        LstSections_Click();
    }
}

void frmCategories::LstSections_Click()
{
    const int pos = LstSections->currentRow();
    if (pos < 0 || pos >= m_codes.size())
        return;
    m_code = m_codes.at(pos);
    Read_Dance_Lists();
    Enable_Lists(!Is_Fixed_Category(m_code));
}

void frmCategories::Read_Dance_Lists()
{
    List1->clear();
    List2->clear();
    Fill(List1, Read_Available_Dances(conn(), Current_Competition_Id, m_code));
    Fill(List2, Read_Selected_Dances(conn(), Current_Competition_Id, m_code));
}

void frmCategories::Enable_Lists(bool on)
{
    List1->setEnabled(on);
    List2->setEnabled(on);
    cmdDel->setEnabled(on);
    CmdEdit->setEnabled(on);
}

void frmCategories::List1_DblClick()
{
    QListWidgetItem *item = List1->currentItem();
    if (!item)
        return;
    Add_Category_Dance(conn(), Current_Competition_Id, m_code, item->data(Qt::UserRole).toInt(), List2->count());
    List2->addItem(List1->takeItem(List1->row(item)));
}

void frmCategories::List2_DblClick()
{
    QListWidgetItem *item = List2->currentItem();
    if (!item)
        return;
    Remove_Category_Dance(conn(), Current_Competition_Id, m_code, item->data(Qt::UserRole).toInt());
    List1->addItem(List2->takeItem(List2->row(item)));
}

namespace {

QList<Dance_Item> Items_Of(QListWidget *list)
{
    QList<Dance_Item> out;
    for (int i = 0; i < list->count(); ++i)
        out << Dance_Item{list->item(i)->data(Qt::UserRole).toInt(), list->item(i)->text()};
    return out;
}

void Show_Items(QListWidget *list, const QList<Dance_Item> &items)
{
    for (int i = 0; i < items.size(); ++i) {
        list->item(i)->setText(items.at(i).name);
        list->item(i)->setData(Qt::UserRole, items.at(i).id);
    }
}

} // namespace

void frmCategories::cmd_up_Click()
{
    try {
        QList<Dance_Item> items = Items_Of(List2);
        const int i = List2->currentRow();
        const int to = Move_Dance_Up(conn(), Current_Competition_Id, m_code, items, i);
        Show_Items(List2, items);
        if (to != i)
            List2->setCurrentRow(to);
    } catch (const AppError &) {
        Msg_Box(QStringLiteral("An error occurred. Please report error to ") + Support_Address);
    }
}

void frmCategories::cmd_down_Click()
{
    try {
        QList<Dance_Item> items = Items_Of(List2);
        const int i = List2->currentRow();
        const int to = Move_Dance_Down(conn(), Current_Competition_Id, m_code, items, i);
        Show_Items(List2, items);
        if (to != i)
            List2->setCurrentRow(to);
    } catch (const AppError &) {
        Msg_Box(QStringLiteral("An error occurred. Please report error to ") + Support_Address);
    }
}

void frmCategories::CmdNew_Click()
{
    m_mode = 1;
    FrmEdit->show();
    TxtID->clear();
    TxtSection->clear();
    TxtSection->setFocus();
}

void frmCategories::CmdEdit_Click()
{
    m_mode = 2;
    FrmEdit->show();
    TxtSection->setText(LstSections->currentItem() ? LstSections->currentItem()->text() : QString());
    TxtID->setText(m_code);
    m_oldCode = m_code;
    TxtSection->setFocus();
}

void frmCategories::CmdCancel_Click()
{
    FrmEdit->hide();
    LstSections->setFocus();
}

void frmCategories::Select_Found(const QString &name)
{
    const int found = ListBoxFindString(LstSections, name);
    if (found >= 0) {
        LstSections->setCurrentRow(found);
        LstSections_Click();
    }
}

void frmCategories::CmdSave_Click()
{
    const QString code = TxtID->text().toUpper();
    const QString name = TxtSection->text();
    if (Category_Code_Used(code, m_codes, m_mode, LstSections->currentRow())) {
        Msg_Box(QStringLiteral("Category ID already used! Please enter another"));
        Select_Found(name);
        return;
    }
    try {
        if (m_mode == 1)
            Insert_Category(conn(), Current_Competition_Id, code, name);
        else if (m_mode == 2)
            Update_Category(conn(), Current_Competition_Id, code, name, m_oldCode);
        Read_Categories();
        FrmEdit->hide();
        Select_Found(name);
    } catch (const AppError &) {
        Msg_Box(QStringList({QStringLiteral("There was an error updating Category "), name,
                             QStringLiteral("Please ensure that the 'Categoy Code' is unique!'"),
                             QStringLiteral("Please fix this record and save again, otherwise you may loose some data!"),
                             QStringLiteral("If problems persist, try deleting this record or closing this window!")})
                    .join(QLatin1Char('\n')),
                vbOKOnly, QStringLiteral("Data Error"));
    }
}

void frmCategories::cmdDel_Click()
{
    if (Msg_Box(QStringLiteral("Are you sure you want to delete this category?"), vbYesNo | vbQuestion,
                QStringLiteral("Deletion Confirmation"))
        == vbYes)
        Delete_Category(conn(), Current_Competition_Id, m_code);
    List1->clear();
    List2->clear();
    Read_Categories();
}
