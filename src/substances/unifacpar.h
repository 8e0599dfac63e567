// Builds the text of the group parameter files from the curated tab-separated tables
// (interaction table: i, j, a_ij[, b_ij, c_ij], a_ji[, b_ji, c_ji]; subgroup table: subgroup,
// name, R, Q, main). The numbers are written as they stand in the tables; pairs are ordered by
// (i, j), subgroups by number; lines end with CR LF. Rows whose main group or subgroup lies
// outside the tables of the program are left out and named in leftOut.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace peq {

// A table that does not have the expected form.
struct UnifacParError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// Modified UNIFAC (Dortmund): main groups 1..150, subgroups 0..300.
std::string MakeModUnifPar(std::string_view interactionsTsv, std::string_view subgroupsTsv,
                           std::vector<std::string>& leftOut);

// UNIFAC: main groups 1..79, subgroups 0..232.
std::string MakeOUnifPar(std::string_view interactionsTsv, std::string_view subgroupsTsv,
                         std::vector<std::string>& leftOut);

}  // namespace peq
