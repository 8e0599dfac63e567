// LSQRUN.EXE: fits gE-model parameters to the points of TO_FIT.DAT in the working directory and
// writes FROM_FIT.DAT.
#include <iostream>

#include "fitrun.h"

int main() { return lsqrun::Run(false, std::cout, std::cerr); }
