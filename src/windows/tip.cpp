#include "windows/tip.h"

#include <filesystem>
#include <fstream>
#include <system_error>
#include <random>

#include "session/numeric.h"
#include "windows/shell.h"

namespace peq {

namespace {

double DefaultZufall() {
  static std::mt19937 gen{std::random_device{}()};
  return std::uniform_real_distribution<double>(0.0, 1.0)(gen);
}

}  // namespace

bool frmTip::Load(mdiPEQ& f, bool vomMenue) {
  TipVomMenue = vomMenue;
  TipsAus = false;
  Datei = f.s.NamenEnglisch ? kTipsFileEnglish : kTipsFileGerman;
  const std::string setting = f.ui.GetSetting(kTipsSection, kTipsKey, "1");
  chkLoadTipsAtStartup = setting != "0";
  if (setting == "0" && !TipVomMenue) {
    TipsAus = true;
    return false;
  }
  cmdTipsZeigen(f);
  return true;
}

void frmTip::LoadTips(const std::filesystem::path& file) {
  Tips.clear();
  std::ifstream in(file, std::ios::binary);
  if (!in) return;
  std::string line;
  while (std::getline(in, line)) {
    while (!line.empty() && (line.back() == '\r' || line.back() == '\n')) line.pop_back();
    if (!line.empty()) Tips.push_back(line);
  }
}

void frmTip::cmdNextTip() {
  if (Tips.empty()) return;
  ++Aktuell;
  if (Aktuell > static_cast<int>(Tips.size())) Aktuell = 1;
  lblTipText = Tips[static_cast<std::size_t>(Aktuell - 1)];
}

void frmTip::cmdTipsZeigen(mdiPEQ& f) {
  const std::filesystem::path file = f.ProgDir / Datei;
  std::error_code ec;
  if (!std::filesystem::exists(file, ec)) {
    Tips.clear();
    Aktuell = 0;
    lblTipText = Datei + " was not found";
    return;
  }
  LoadTips(file);
  if (Tips.empty()) {
    Aktuell = 0;
    lblTipText.clear();
    return;
  }
  const double r = Zufall ? Zufall() : DefaultZufall();
  int place = static_cast<int>(Int(r * static_cast<double>(Tips.size()) + 1.0));
  if (place < 1) place = 1;
  if (place > static_cast<int>(Tips.size())) place = static_cast<int>(Tips.size());
  Aktuell = place;
  lblTipText = Tips[static_cast<std::size_t>(Aktuell - 1)];
}

bool frmTip::chkLoadTipsAtStartup_Click(mdiPEQ& f, bool on) {
  chkLoadTipsAtStartup = on;
  return f.ui.SaveSetting(kTipsSection, kTipsKey, on ? "1" : "0");
}

void frmTip::cmdOK(mdiPEQ& f) { f.Unload(WindowId::frmTip); }

}  // namespace peq
