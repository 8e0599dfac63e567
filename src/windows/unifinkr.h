// frmUnifInkr: the read-only window with the group table of a UNIFAC parameter file.
#pragma once

#include <string>

namespace peq {

struct frmUnifInkr {
  std::string Caption;  // "UNIFAC groups" or "Mod-UNIFAC groups"
  std::string Text;     // the table text, one group a line
};

}  // namespace peq
