// A frame with ethanol (1) and water (2) of the bundled database and accepted models, for the
// windows of the state calculation: the input window, the result window and the record.
#pragma once

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "windows/calcinput.h"
#include "windows/calcout.h"
#include "windows/frame_fixture.h"
#include "windows/geinput.h"
#include "windows/protokoll.h"

namespace peqtest {

class CalcTest : public ::testing::Test {
 protected:
  // NRTL with a parameter set and the ideal gas (gamma-phi), or Peng-Robinson with the
  // van der Waals mixing rule (phi-phi).
  void Models(bool phiPhi) {
    e.Start();
    e.Mixture({"64-17-5", "7732-18-5"});
    ASSERT_TRUE(e.f.IsLoaded(peq::WindowId::frmVModell));
    peq::frmVModell& vm = e.f.VModell;
    if (phiPhi) {
      vm.tabModellKonzept_Click(e.f, 1);
      vm.cmbCEOS_Click(e.f, 3);  // Peng-Robinson
    } else {
      int nrtl = -1;
      for (std::size_t k = 0; k < vm.GEKombiTexte.size(); ++k)
        if (vm.GEKombiTexte[k] == "NRTL") nrtl = static_cast<int>(k);
      ASSERT_GE(nrtl, 0);
      vm.GEKombi_Click(e.f, nrtl);
      // NRTL parameters of ethanol (1) - water (2) in J/mol: dg12, dg21 and alpha.
      peq::ParSlot(e.s, 1, 1, 2) = -517.9;
      peq::ParSlot(e.s, 4, 1, 2) = 5068.2;
      peq::ParSlot(e.s, 7, 1, 2) = 0.3031;
    }
    vm.cmdOKModell(e.f);
    ASSERT_FALSE(e.f.IsLoaded(peq::WindowId::frmVModell));
    ASSERT_EQ(e.s.Konzept, phiPhi);
    e.ui.boxes.clear();
  }

  // The calculation command (1 flash, 3 activity coefficients) and the input window's load.
  void Command(int index) {
    ASSERT_TRUE(e.Reachable(peq::Cmd::calc, static_cast<int16_t>(index)));
    e.f.Run(C(peq::Cmd::calc, static_cast<int16_t>(index)));
    ASSERT_TRUE(e.f.IsLoaded(peq::WindowId::frmCalcInput));
    in.Load(e.f);
  }

  // Feed of the amounts in kmol, typed into the boxes.
  void FeedIn(const std::vector<std::string>& amounts) {
    for (std::size_t k = 0; k < amounts.size(); ++k) in.txtCInput_Change(e.f, static_cast<int>(k) + 1, amounts[k]);
  }

  // Go on: when the result window opened, its load step.
  void Weiter() {
    in.cmdWeiter(e.f);
    if (e.f.IsLoaded(peq::WindowId::frmCalcOut)) out.Load(e.f);
  }

  // A flash of 1 kmol of each at p (kPa) and T (K) given.
  void FlashPT(double p, double T) {
    Command(1);
    in.optVorgabe_Click(e.f, 2);
    in.optTUnit_Click(e.f, 0);
    in.txtT_Change(e.f, peq::EingabeZahl(T));
    in.txtp_Change(e.f, peq::EingabeZahl(p));
    FeedIn({"1", "1"});
    Weiter();
  }

  bool Shown(peq::WindowId id) const {
    for (peq::WindowId w : e.ui.shown)
      if (w == id) return true;
    return false;
  }

  static std::vector<std::string> Lines(const std::string& file) {
    std::ifstream f(file, std::ios::binary);
    std::vector<std::string> out;
    std::string line;
    while (std::getline(f, line)) {
      if (!line.empty() && line.back() == '\r') line.pop_back();
      out.push_back(line);
    }
    return out;
  }
  static std::string Bytes(const std::string& file) {
    std::ifstream f(file, std::ios::binary);
    std::ostringstream ss;
    ss << f.rdbuf();
    return ss.str();
  }
  // Fields of a line split at the delimiter (a trailing delimiter gives an empty last field).
  static std::vector<std::string> Fields(const std::string& line, char sep = ';') {
    std::vector<std::string> out;
    std::string cur;
    for (char c : line) {
      if (c == sep) {
        out.push_back(cur);
        cur.clear();
      } else {
        cur.push_back(c);
      }
    }
    out.push_back(cur);
    return out;
  }

  FrameEnv e;
  peq::frmCalcInput in;
  peq::frmCalcOut out;
};

}  // namespace peqtest
