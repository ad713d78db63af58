#pragma once

// Draws the program's boxes, folder browser and file choosers with real windows.
void Install_Dialog_Presenter();
