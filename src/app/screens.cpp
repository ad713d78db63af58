#include "screens.h"

// One line per screen: frmMain::Register_Screen("<menu item>", [] { return new <screen>; });
void Register_All_Screens()
{
}
