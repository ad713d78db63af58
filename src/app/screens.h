#pragma once

// Tells the main window which screen each menu item opens.
void Register_All_Screens();
