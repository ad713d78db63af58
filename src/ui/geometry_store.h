#pragma once
#include <QRect>

class QWidget;

// The main window's place and size, kept in the per-user settings store
// (section "Settings", keys MainLeft, MainTop, MainWidth, MainHeight) in
// twips as decimal text. Missing keys read 1000, 1000, 6500, 6500.
QRect Load_Main_Geometry();
// False when none of the four keys is stored yet (a first start).
bool Has_Main_Geometry();
void Save_Main_Geometry(const QRect &pixels);
int Twips_To_Pixels(int twips);
int Pixels_To_Twips(int pixels);
