#include "screens.h"
#include "entries/frmCompetitors.h"
#include "entries/registration/frmRegistration.h"
#include "entries/split/frmSplitAges.h"
#include "exchange/FrmBackup.h"
#include "exchange/FrmImport.h"
#include "exchange/FrmRestore.h"
#include "reports/FrmReports.h"
#include "reports/teachers_report.h"
#include "exchange/online/frmonlinereg.h"
#include "tally/competition/screen/FrmTallyComp.h"
#include "tally/three_judge/screen/three_judge_screen.h"
#include "publish/FrmHTML2.h"
#include "publish/frmbrogard.h"
#include "setup/FrmEvents.h"
#include "setup/frmCategories.h"
#include "setup/frmJudges.h"
#include "setup/frmdances.h"
#include "setup/frmgroups.h"
#include "setup/wizard/frmWizard.h"
#include "setup/trophies/frmwizardtrophies.h"
#include "setup/trophies/frmtrophies.h"
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
    frmMain::Register_Screen("mnuHTML", [] { return new FrmHTML2; });
    frmMain::Register_Screen("mnubrogard", [] { return new frmbrogard; });
    frmMain::Register_Screen("mnusplit", [] { return new frmSplitAges; });
    frmMain::Register_Screen("mnuregistration", [] { return new frmRegistration; });
    frmMain::Register_Screen("mnuTallierPrem", [] { return new ThreeJudgeScreen(Premiership_Kind()); });
    frmMain::Register_Screen("mnubackup", [] { return new FrmBackup; });
    frmMain::Register_Screen("mnurestore", [] { return new FrmRestore; });
    frmMain::Register_Screen("mnuImport", [] { return new FrmImport; });
    frmMain::Register_Screen("mnustewards", [] { return new FrmReports; });
    frmMain::Register_Screen("mnuteachers", []() -> QWidget * { Show_Teachers_Report(); return nullptr; });
    frmMain::Register_Screen("mnuonlinereg", [] { return new frmonlinereg; });
    frmMain::Register_Screen("mnusettings", [] { return new frmconfig; });
    frmMain::Register_Screen("mnuCompetitionWizard", [] { return new frmWizard; });
    frmMain::Register_Screen("mnutrophy", [] { return new frmwizardtrophies; });
    frmMain::Register_Screen("mnuoverall", [] { return new frmtrophies; });
}
