#include "ui/program.h"

int main(int argc, char *argv[])
{
    return Run_Program(argc, argv);
}
