#pragma once
#include <memory>

class frmMain;

// The start of the run up to the main window shown. Null when the run ends
// early (the database could not be opened, or a fault while starting).
std::unique_ptr<frmMain> Start_Program();

// The entry point: start, then the event loop.
int Run_Program(int argc, char *argv[]);
