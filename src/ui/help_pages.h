#pragma once
#include <QString>

// The program's help pages: share/doc/strathmark/help beside an installed
// program, or help/ in the build folder. Empty when there are none.
QString Help_Index();
