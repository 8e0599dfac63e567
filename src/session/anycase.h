// Finding a file whose name the program or a file spells in another case ("from_Batch.dat",
// "FROM_BATCH.DAT") on a case-sensitive file system.
#pragma once

#include <filesystem>

namespace peq {

// The path itself when it exists, else the one entry of its directory whose name equals its
// file name regardless of case; the path unchanged when there is none.
std::filesystem::path FindFileAnyCase(const std::filesystem::path& p);

}  // namespace peq
