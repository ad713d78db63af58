#include "frmdances.h"
#include "dance_rules.h"

#include "core/globals.h"

#include <QPushButton>

frmdances::frmdances(QWidget *parent)
    : GridScreen(QStringLiteral("frmdances"), App_Title + QStringLiteral(" - Dances"), std::make_unique<DanceRules>(),
                 parent)
{
    CmdAdd->setToolTip(QStringLiteral("Add New Dance"));
    CmdSave->setToolTip(QStringLiteral("Save Changes"));
    cmdDel->setToolTip(QStringLiteral("Delete Dance"));
    Load_Grid();
}

void frmdances::Delete_Captions(bool yes, bool)
{
    if (yes)
        Set_Cell(0, 1, QStringLiteral("Dance Name"));
}
