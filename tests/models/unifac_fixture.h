// Parameter files and mixtures for the tests of the group-contribution models. The rows below
// are copied from the curated tables (../shared/data/unifac, see its PROVENANCE.md): the 2006
// Dortmund table (Jakob, Grensemann, Lohmann, Gmehling, Ind. Eng. Chem. Res. 45 (2006) 7924) for
// the main groups of benzene, cyclohexane, acetone and ethanol, and the subgroup constants of
// the published DDBST subgroup tables. Files are written through the project's own writer.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "activity_fixture.h"
#include "substances/unifacpar.h"
#include "support/fuzzy.h"

namespace acttest {

inline const char* kMod2006Pairs =
    "i\tj\ta_ij\tb_ij\tc_ij\ta_ji\tb_ji\tc_ji\n"
    "1\t3\t114.2\t0.0933\t0\t16.07\t-0.2998\t0\n"
    "1\t5\t2777\t-4.674\t0.001551\t1606\t-4.746\t0.0009181\n"
    "1\t9\t433.6\t0.1473\t0\t199\t-0.8709\t0\n"
    "1\t42\t-117.1\t0.5481\t-0.00098\t170.9\t-0.8062\t0.001291\n"
    "3\t5\t3972\t-13.16\t0.01208\t3049\t-12.77\t0.01435\n"
    "3\t9\t146.2\t-1.237\t0.004237\t-57.53\t1.212\t-0.003715\n"
    "3\t42\t134.6\t-1.231\t0.001488\t-2.619\t1.094\t-0.001557\n"
    "5\t9\t-250\t2.857\t-0.006022\t653.3\t-1.412\t0.000954\n"
    "5\t42\t3121\t-13.69\t0.01446\t2601\t-1.25\t-0.006309\n"
    "9\t42\t168.2\t-0.8197\t0\t464.5\t0.1542\t0\n";

inline const char* kModSubgroups =
    "subgroup\tname\tR\tQ\tmain\n"
    "1\tCH3\t0.6325\t1.0608\t1\n"
    "2\tCH2\t0.6325\t0.7081\t1\n"
    "9\tACH\t0.3763\t0.4321\t3\n"
    "14\tOH(P)\t1.2302\t0.8927\t5\n"
    "18\tCH3CO\t1.7048\t1.67\t9\n"
    "78\tCY-CH2\t0.7136\t0.8635\t42\n";

// Writes a Mod. UNIFAC file from the two tables into dir and returns its path.
inline std::string WriteModFile(const TempDir& dir, const std::string& pairs,
                                const std::string& subs, const std::string& name = "MOD.PAR") {
  std::vector<std::string> leftOut;
  return dir.Write(name, peq::MakeModUnifPar(pairs, subs, leftOut));
}
inline std::string WriteOUnifFile(const TempDir& dir, const std::string& pairs,
                                  const std::string& subs, const std::string& name = "OUNIF.PAR") {
  std::vector<std::string> leftOut;
  return dir.Write(name, peq::MakeOUnifPar(pairs, subs, leftOut));
}

// The shipped files of the source tree.
inline std::string ShippedModFile() { return peqtest::SourceDir() + "/data/MODUNIF5PLUS.PAR"; }
inline std::string ShippedOUnifFile() { return peqtest::SourceDir() + "/data/OUNIF6PLUS.PAR"; }

// An increment text of the form "02001,01002,00000,..." from (count, subgroup) pairs.
inline std::string Inkr(std::initializer_list<std::pair<int, int>> groups) {
  std::string t;
  int slots = 0;
  char buf[8];
  for (const auto& [count, sub] : groups) {
    std::snprintf(buf, sizeof buf, "%05d", count * 1000 + sub);
    if (slots > 0) t += ",";
    t += buf;
    ++slots;
  }
  for (; slots < 7; ++slots) t += slots > 0 ? ",00000" : "00000";
  return t;
}

// A Mod. UNIFAC session over the given increments with the file.
inline peq::Session ModSession(const std::vector<std::string>& inkr, const std::string& file) {
  peq::Session s = MakeSession(static_cast<int>(inkr.size()), 20);
  for (std::size_t i = 0; i < inkr.size(); ++i) {
    s.StoffData[i + 1].ModUnifInkr = inkr[i];
    s.TKrit[i + 1] = 500.0f;
  }
  s.ModUnifFile = file;
  return s;
}
inline peq::Session OUnifSession(const std::vector<std::string>& inkr, const std::string& file) {
  peq::Session s = MakeSession(static_cast<int>(inkr.size()), 21);
  for (std::size_t i = 0; i < inkr.size(); ++i) {
    s.StoffData[i + 1].OUnifInkr = inkr[i];
    s.TKrit[i + 1] = 500.0f;
  }
  s.OUnifFile = file;
  return s;
}

// UNIFAC increment texts of a session as the model takes them.
inline peq::Vec<std::string> IncrOf(const peq::Session& s) {
  peq::Vec<std::string> v(static_cast<std::size_t>(s.NKomp) + 1);
  for (int i = 1; i <= s.NKomp; ++i) v[i] = s.StoffData[i].OUnifInkr;
  return v;
}

}  // namespace acttest
