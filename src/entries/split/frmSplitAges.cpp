#include "frmSplitAges.h"

#include "core/contacts.h"
#include "core/dialogs.h"
#include "core/errors.h"
#include "core/globals.h"

#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QLabel *Make_Label(QWidget *parent, const char *name, const QString &caption, int pointDelta = 0)
{
    auto *l = new QLabel(caption, parent);
    l->setObjectName(QLatin1String(name));
    if (pointDelta) {
        QFont f = l->font();
        f.setBold(true);
        f.setPointSizeF(f.pointSizeF() + pointDelta);
        l->setFont(f);
    }
    return l;
}

QListWidget *Make_List(QWidget *parent, const char *name, const QString &tip = QString())
{
    auto *l = new QListWidget(parent);
    l->setObjectName(QLatin1String(name));
    l->setToolTip(tip);
    return l;
}

QPushButton *Make_Button(QWidget *parent, const char *name, const QString &caption, const QString &tip)
{
    auto *b = new QPushButton(caption, parent);
    b->setObjectName(QLatin1String(name));
    b->setToolTip(tip);
    return b;
}

} // namespace

frmSplitAges::frmSplitAges(QWidget *parent)
    : Screen(QStringLiteral("frmSplitAges"), QStringLiteral("Split Age groups"), parent)
{
    Build_Controls();
    setWindowState(windowState() | Qt::WindowMaximized);
    if (!Open_Connection())
        return;
    try {
        for (const Split_Event &e : Split_Events(conn(), Current_Competition_Id)) {
            lstGroups->addItem(e.name);
            m_codes << e.code;
        }
    } catch (const AppError &) {
        Split_Failure();
    }
}

void frmSplitAges::Build_Controls()
{
    lstGroups = Make_List(this, "lstGroups", QStringLiteral("Select age group to be split"));
    lstcounts = Make_List(this, "lstcounts");
    lstcounts->setSelectionMode(QAbstractItemView::MultiSelection);
    lstcreategroups = Make_List(this, "lstcreategroups");
    CmdAdd = Make_Button(this, "CmdAdd", QStringLiteral("Add Group >"), QStringLiteral("Add an age group"));
    CmdReset = Make_Button(this, "CmdReset", QStringLiteral("< Reset >"), QStringLiteral("Reset all selections"));
    CmdCreate = Make_Button(this, "CmdCreate", QStringLiteral("Save Changes"),
                            QStringLiteral("Save changes and create age groups"));

    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(24, 16, 24, 16);
    grid->setHorizontalSpacing(16);
    grid->addWidget(Make_Label(this, "lblHeading", QStringLiteral("Split Age Groups"), 6), 0, 0, 1, 4);
    grid->addWidget(Make_Label(this, "lblSelect", QStringLiteral("Select the Age Group to split"), 1), 1, 0, 1, 4);
    grid->addWidget(Make_Label(this, "lblGroups", QStringLiteral("Select Age Group")), 2, 0);
    grid->addWidget(Make_Label(this, "lblcounts", QStringLiteral("Ages")), 2, 1);
    grid->addWidget(Make_Label(this, "lblcreategroups", QStringLiteral("Create Age Groups")), 2, 3);
    grid->addWidget(lstGroups, 3, 0);
    grid->addWidget(lstcounts, 3, 1);
    auto *middle = new QVBoxLayout;
    middle->addStretch(1);
    middle->addWidget(CmdAdd);
    middle->addWidget(CmdReset);
    middle->addStretch(1);
    grid->addLayout(middle, 3, 2);
    grid->addWidget(lstcreategroups, 3, 3);
    grid->addWidget(CmdCreate, 4, 3, Qt::AlignRight);
    grid->setColumnStretch(0, 3);
    grid->setColumnStretch(1, 2);
    grid->setColumnStretch(3, 3);
    grid->setRowStretch(3, 1);

    connect(lstGroups, &QListWidget::currentRowChanged, this, &frmSplitAges::lstGroups_Click);
    connect(CmdAdd, &QPushButton::clicked, this, &frmSplitAges::CmdAdd_Click);
    connect(CmdReset, &QPushButton::clicked, this, &frmSplitAges::CmdReset_Click);
    connect(CmdCreate, &QPushButton::clicked, this, &frmSplitAges::CmdCreate_Click);
}

void frmSplitAges::Clear_Lists()
{
    lstcounts->clear();
    m_ages.clear();
    lstcreategroups->clear();
    m_bands.clear();
}

void frmSplitAges::Read_Ages()
{
    m_ages = Event_Ages(conn(), Current_Competition_Id, Current_Group_Id);
    for (const Age_Count &a : m_ages)
        lstcounts->addItem(Age_Text(a));
}

void frmSplitAges::lstGroups_Click()
{
    Clear_Lists();
    const int row = lstGroups->currentRow();
    // No event chosen: nothing of another screen's event is touched.
    if (row < 0 || row >= m_codes.size())
        return;
    Current_Group_Id = m_codes.at(row);
    try {
        if (Earlier_Split_Count(conn(), Current_Competition_Id, Current_Group_Id) > 0
            && Msg_Box(QStringLiteral("This age group has already been split. Continuing will delete the split age "
                                      "groups. Do you want to continue?"),
                       vbYesNo + vbQuestion, QStringLiteral("Continue Confirmation"))
                   != vbYes) {
            Clear_Lists();
            return;
        }
        Read_Ages();
    } catch (const AppError &) {
        Split_Failure();
    }
}

void frmSplitAges::CmdAdd_Click()
{
    if (lstcounts->count() == 0)
        return;
    try {
        QList<bool> selected;
        for (int row = 0; row < lstcounts->count(); ++row)
            selected << lstcounts->item(row)->isSelected();
        const Band_Choice choice = Make_Band(m_ages, selected, m_bands);
        if (choice.refused) {
            Msg_Box(QStringLiteral("This age group would overlap another age group!"), vbExclamation,
                    QStringLiteral("Validation Error"));
            return;
        }
        for (int row = choice.lastRow; row >= choice.firstRow; --row) {
            delete lstcounts->takeItem(row);
            m_ages.removeAt(row);
        }
        lstcreategroups->addItem(choice.text);
        m_bands << choice.band;
    } catch (const AppError &) {
        Split_Failure();
    }
}

void frmSplitAges::CmdReset_Click()
{
    Clear_Lists();
    if (lstGroups->currentRow() < 0)
        return;
    try {
        Read_Ages();
    } catch (const AppError &) {
        Split_Failure();
    }
}

void frmSplitAges::CmdCreate_Click()
{
    const int row = lstGroups->currentRow();
    if (row < 0 || row >= m_codes.size())
        return;
    const QString name = lstGroups->item(row)->text();
    try {
        if (Msg_Box(QStringLiteral("Confirm you wish to split ") + name + QStringLiteral(" into ")
                        + QString::number(m_bands.size())
                        + QStringLiteral(" age group(s) and enter competitors based on age?"),
                    vbYesNo + vbQuestion, QStringLiteral("Exit Confirmation"))
            != vbYes)
            return;
        Split_By_Age(conn(), Current_Competition_Id, m_codes.at(row), name, m_bands);
        Msg_Box(QStringLiteral("Age group ") + name + QStringLiteral(" split successfully!"), vbInformation);
    } catch (const AppError &) {
        Split_Failure();
    }
}

void frmSplitAges::Split_Failure()
{
    Msg_Box(QStringLiteral("There was an error in splitting this group. Please take an export of this competition "
                           "and email it to ")
                + QLatin1String(Contacts::Support_Email) + QStringLiteral(" for help"),
            vbCritical);
}
