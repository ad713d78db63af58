#include "screens.h"
#include "entries/frmCompetitors.h"
#include "tally/competition/screen/FrmTallyComp.h"
#include "tally/three_judge/screen/three_judge_screen.h"
#include "setup/FrmEvents.h"
#include "setup/frmCategories.h"
#include "setup/frmJudges.h"
#include "setup/frmdances.h"
#include "setup/frmgroups.h"
#include "settings/frmconfig.h"
#include "ui/frmMain.h"

// One line per screen: frmMain::Register_Screen("<menu item>", [] { return new <screen>; });
void Register_All_Screens()
{
    frmMain::Register_Screen("mnucompetitors", [] { return new frmCompetitors; });
    frmMain::Register_Screen("mnuevents", [] { return new FrmEvents; });
    frmMain::Register_Screen("mnuAgeGroup", [] { return new frmgroups; });
    frmMain::Register_Screen("mnusections", [] { return new frmCategories; });
    frmMain::Register_Screen("mnudances", [] { return new frmdances; });
    frmMain::Register_Screen("mnujudges", [] { return new frmJudges; });
    frmMain::Register_Screen("mnuCompetition", [] { return new FrmTallyComp; });
    frmMain::Register_Screen("mnuTallier", [] { return new ThreeJudgeScreen(Championship_Kind()); });
    frmMain::Register_Screen("mnuTallierPrem", [] { return new ThreeJudgeScreen(Premiership_Kind()); });
    frmMain::Register_Screen("mnusettings", [] { return new frmconfig; });
}
