#include "FrmEvents.h"
#include "competition_logic.h"
#include "competition_rules.h"

#include "core/dialogs.h"
#include "core/globals.h"
#include "ui/grid/flex_grid.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QLabel *Make_Label(QWidget *parent, const char *name, const QString &caption)
{
    auto *l = new QLabel(caption, parent);
    l->setObjectName(QLatin1String(name));
    return l;
}

} // namespace

FrmEvents::FrmEvents(QWidget *parent)
    : GridScreen(QStringLiteral("FrmEvents"), App_Title + QStringLiteral(" - Competitions"),
                 std::make_unique<CompetitionRules>(), parent)
{
    CmdAdd->setToolTip(QStringLiteral("Add New Competition"));
    CmdSave->setToolTip(QStringLiteral("Save Changes"));
    cmdDel->setToolTip(QStringLiteral("Delete Competition"));
    CmdCopy = new QPushButton(QStringLiteral("&Copy"), this);
    CmdCopy->setObjectName(QStringLiteral("CmdCopy"));
    CmdCopy->setToolTip(QStringLiteral("Create a copy of an existing competition"));
    Button_Row()->insertWidget(3, CmdCopy);
    connect(CmdCopy, &QPushButton::clicked, this, &FrmEvents::CmdCopy_Click);
    Build_Copy_Panel();
    setWindowState(windowState() | Qt::WindowMaximized);
    Load_Grid();
}

void FrmEvents::Build_Copy_Panel()
{
    FrmCopy1 = new QGroupBox(QStringLiteral("Copy Competition"), this);
    FrmCopy1->setObjectName(QStringLiteral("FrmCopy1"));
    lblCopyTxt1 = Make_Label(FrmCopy1, "lblCopyTxt1", QStringLiteral("Create new competition based on:"));
    lblCopyTxt2 = Make_Label(FrmCopy1, "lblCopyTxt2", QString());
    QFont bold = lblCopyTxt2->font();
    bold.setBold(true);
    lblCopyTxt2->setFont(bold);
    lblCompName = Make_Label(FrmCopy1, "lblCompName", QStringLiteral("Name"));
    TxtCompname = new QLineEdit(FrmCopy1);
    TxtCompname->setObjectName(QStringLiteral("TxtCompname"));
    lblCompDate = Make_Label(FrmCopy1, "lblCompDate", QStringLiteral("Date"));
    TxtCompDate = new QLineEdit(FrmCopy1);
    TxtCompDate->setObjectName(QStringLiteral("TxtCompDate"));
    LblCopyComp = Make_Label(FrmCopy1, "LblCopyComp", QStringLiteral("Copy Competitor Data?"));
    LstCopyComp = new QListWidget(FrmCopy1);
    LstCopyComp->setObjectName(QStringLiteral("LstCopyComp"));
    auto *no = new QListWidgetItem(QStringLiteral("No"), LstCopyComp);
    no->setData(Qt::UserRole, 0);
    auto *yes = new QListWidgetItem(QStringLiteral("Yes!"), LstCopyComp);
    yes->setData(Qt::UserRole, 1);
    LstCopyComp->setMaximumHeight(LstCopyComp->sizeHintForRow(0) * 2 + 2 * LstCopyComp->frameWidth() + 4);
    cmdcreate = new QPushButton(QStringLiteral("C&reate"), FrmCopy1);
    cmdcreate->setObjectName(QStringLiteral("cmdcreate"));
    cmdcreate->setToolTip(QStringLiteral("Save changes"));
    CmdCancel = new QPushButton(QStringLiteral("Ca&ncel"), FrmCopy1);
    CmdCancel->setObjectName(QStringLiteral("CmdCancel"));
    CmdCancel->setToolTip(QStringLiteral("Cancel copy"));

    auto *g = new QGridLayout(FrmCopy1);
    g->addWidget(lblCopyTxt1, 0, 0, 1, 2);
    g->addWidget(lblCopyTxt2, 1, 0, 1, 2);
    g->addWidget(lblCompName, 2, 0);
    g->addWidget(TxtCompname, 2, 1);
    g->addWidget(lblCompDate, 3, 0);
    g->addWidget(TxtCompDate, 3, 1);
    g->addWidget(LblCopyComp, 4, 0);
    g->addWidget(LstCopyComp, 4, 1);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(cmdcreate);
    buttons->addWidget(CmdCancel);
    buttons->addStretch(1);
    g->addLayout(buttons, 5, 0, 1, 2);

    FrmCopy2 = new QGroupBox(QStringLiteral("Hint"), this);
    FrmCopy2->setObjectName(QStringLiteral("FrmCopy2"));
    lblCopyTxt3 = Make_Label(FrmCopy2, "lblCopyTxt3",
                             QStringLiteral("This screen allows creation of a new competition based on an existing one. "
                                            "It will copy across all age groups, and categeories."));
    lblCopyTxt3->setWordWrap(true);
    (new QVBoxLayout(FrmCopy2))->addWidget(lblCopyTxt3);

    auto *panel = new QHBoxLayout;
    panel->addWidget(FrmCopy1, 2);
    panel->addWidget(FrmCopy2, 1);
    panel->addStretch(1);
    Body()->addLayout(panel);
    Show_Copy_Panel(false);

    connect(cmdcreate, &QPushButton::clicked, this, &FrmEvents::cmdcreate_Click);
    connect(CmdCancel, &QPushButton::clicked, this, &FrmEvents::CmdCancel_Click);
}

void FrmEvents::Show_Copy_Panel(bool on)
{
    FrmCopy1->setVisible(on);
    FrmCopy2->setVisible(on);
}

void FrmEvents::Before_Cascade()
{
    txtEdit->setText(QStringLiteral(" "));
}

void FrmEvents::Delete_Captions(bool yes, bool cleared)
{
    if (yes && cleared) {
        Set_Cell(0, 1, QStringLiteral("Name"));
        Set_Cell(0, 2, QStringLiteral("Date"));
    }
}

void FrmEvents::CmdCopy_Click()
{
    // The grid is saved first, with its "Changes Saved!" box; the save re-sorts
    // the grid, so the chosen competition is found again by its id (a new row
    // by its name and date).
    const int chosen = Current_Row();
    const QString id = Cell(chosen, 0), name = Cell(chosen, 1), date = Cell(chosen, 2);
    if (!Save_Changes())
        return;
    for (int r = Fixed_Rows(); r < Row_Count(); ++r) {
        const bool same = (id != QLatin1String("0") && !id.isEmpty()) ? Cell(r, 0) == id
                                                                       : Cell(r, 1) == name && Cell(r, 2) == date;
        if (same)
            Go_To(r, Current_Col());
    }
    m_copySource = Cell(Current_Row(), 0);
    Show_Copy_Panel(true);
    lblCopyTxt2->setText(Cell(Current_Row(), 1));
    TxtCompname->clear();
    TxtCompDate->clear();
    LstCopyComp->setCurrentRow(0);
    TxtCompname->setFocus();
}

void FrmEvents::cmdcreate_Click()
{
    try {
        QListWidgetItem *chosen = LstCopyComp->currentItem();
        const int withCompetitors = chosen ? chosen->data(Qt::UserRole).toInt() : 0;
        // The source stays the current competition after the copy.
        Current_Competition_Id = To_Int16((m_copySource.isEmpty() ? Cell(Current_Row(), 0) : m_copySource).toLongLong());
        if (TxtCompname->text().isEmpty() || TxtCompDate->text().isEmpty()) {
            Msg_Box(QStringLiteral("Name and date fields are required!"), vbExclamation,
                    QStringLiteral("Validation Error"));
            return;
        }
        Copy_Competition(conn(), Current_Competition_Id, TxtCompname->text(), TxtCompDate->text(),
                         withCompetitors == 1);
        Show_Copy_Panel(false);
        Refresh_Grid();
        MSFlexGrid1->setFocus();
    } catch (const AppError &) {
        Msg_Box(QStringLiteral("There was an error copying this competition!"), vbExclamation,
                QStringLiteral("Data Error"));
    }
}

void FrmEvents::CmdCancel_Click()
{
    Show_Copy_Panel(false);
}
