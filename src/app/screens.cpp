#include "screens.h"
#include "entries/frmCompetitors.h"
#include "ui/frmMain.h"

// One line per screen: frmMain::Register_Screen("<menu item>", [] { return new <screen>; });
void Register_All_Screens()
{
    frmMain::Register_Screen("mnucompetitors", [] { return new frmCompetitors; });
}
