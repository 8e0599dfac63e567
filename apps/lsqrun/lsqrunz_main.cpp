// LSQRUNZ.EXE: fits the k(ij) (or the gE-rule parameters) of the cubic equation of state to the
// points of TO_FITZ.DAT in the working directory and writes FROM_FITZ.DAT.
#include <iostream>

#include "fitrun.h"

int main() { return lsqrun::Run(true, std::cout, std::cerr); }
