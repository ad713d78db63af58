#include "screens.h"
#include "ui/program.h"

int main(int argc, char *argv[])
{
    Register_All_Screens();
    return Run_Program(argc, argv);
}
