#include "frmJudges.h"
#include "judge_rules.h"

#include "core/globals.h"

#include <QPushButton>

frmJudges::frmJudges(QWidget *parent)
    : GridScreen(QStringLiteral("frmJudges"), App_Title + QStringLiteral(" - Judges"), std::make_unique<JudgeRules>(),
                 parent)
{
    CmdAdd->setToolTip(QStringLiteral("Add New Judge"));
    CmdSave->setToolTip(QStringLiteral("Save Changes"));
    cmdDel->setToolTip(QStringLiteral("Delete Judge"));
    Load_Grid();
}

void frmJudges::Delete_Captions(bool, bool)
{
    Set_Cell(0, 0, QStringLiteral("Judge_id"));
    Set_Cell(0, 1, QStringLiteral("forename"));
    Set_Cell(0, 2, QStringLiteral("surname"));
}
