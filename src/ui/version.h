#pragma once
#include <QString>

// "Version " with the major, minor and revision numbers, as the splash and
// the about box show it.
QString Version_Text();
