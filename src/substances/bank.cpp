// The open database: index, look-up by CAS-RN, loading of the mixture into the session.
#include "substances/bank.h"

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "models/liquid.h"
#include "models/vappressure.h"
#include "models/virial.h"
#include "session/anycase.h"
#include "session/codepage.h"
#include "session/constants.h"
#include "session/numeric.h"
#include "substances/q07.h"

namespace peq {

namespace fs = std::filesystem;

namespace {

// Widths of the text fields of a record.
constexpr std::size_t kFormelWidth = 12;
constexpr std::size_t kNameWidth = 40;
constexpr std::size_t kCasWidth = 12;
constexpr std::size_t kInkrWidth = 41;

// The five codes a stored equation choice may keep. A plain substring test on this literal
// decides, so that blank never matches.
constexpr std::string_view kEquationCodes = "AUGAHPALPWAGFRO";

constexpr const char* kMsgNoEquation =
    "For a component neither a vapour pressure equation nor T(cr)/p(cr) found:";
constexpr const char* kTitleNoEquation = "no calculation possible";

// Normal pressure, kPa: the AUGUST line runs through (TSiede, 101.325 kPa).
constexpr double kPNormal = 101.325;

// WILSON volumes are taken from the liquid density at 25 °C.
constexpr double kTWilson = 298.15;

// Path text as given by a user or a file: both "\" and "/" separate directories.
std::string Slashes(std::string p) {
  for (char& c : p)
    if (c == '\\') c = '/';
  return p;
}

bool HasDirectory(const std::string& name) {
  return name.find_first_of("\\/") != std::string::npos;
}

fs::path ResolveBankPath(const std::string& pfadBank, const std::string& name) {
  const std::string n = Slashes(name);
  fs::path p = HasDirectory(name) ? fs::path(n) : fs::path(Slashes(pfadBank)) / n;
  return FindFileAnyCase(p);
}

bool IsKeptCode(const std::string& code) {
  return !code.empty() && kEquationCodes.find(code) != std::string_view::npos;
}

// The record's values converted as the session holds them. Everything that can fault is done
// here, before the session is touched.
struct StagedSubstance {
  StoffRecord stoff;
  float molMasse = 0, tKrit = 0, pKrit = 0, rhoKrit = 0, omega = 0;
  ParAntoine alp, ahp;
  ParFrost fro;
  ParWagner wag;
  ParDensity rho;
  ParEnthalpy lvh;
};

StagedSubstance Stage(const Q07Record& r, bool namenEnglisch) {
  const auto V = [&r](int k) { return static_cast<double>(r.V[static_cast<std::size_t>(k)]); };
  StagedSubstance g;
  StoffRecord& st = g.stoff;
  st.Formel = FixedField(r.Formel, kFormelWidth);
  const std::string& name = namenEnglisch ? r.Name1 : r.Name2;
  st.Name = FixedField(name.substr(0, name.find(';')), kNameWidth);
  st.CasNr = FixedField(r.CasNr, kCasWidth);
  st.ModUnifInkr = FixedField(r.ModUnifInkr, kInkrWidth);
  st.OUnifInkr = FixedField(r.OUnifInkr, kInkrWidth);

  // UNIQUAC R and Q, else from the van der Waals volume and surface (Bondi):
  // R = Vw/15.17 cm^3/mol with Vw in m^3/kmol times 1000, Q = Aw/2.5E9 cm^2/mol.
  st.RUniquac = V(2) > kPresent ? r.V[2] : CSng(Int(V(4) * 65.91957811470007 * 10000 + 0.5) / 10000);
  st.QUniquac = V(3) > kPresent ? r.V[3] : CSng(Int(V(5) * 4E-9 * 10000 + 0.5) / 10000);

  g.molMasse = Round4(V(0));
  g.tKrit = Round4(V(6));
  g.pKrit = Round4(V(7));
  g.rhoKrit = r.V[8];
  g.omega = r.V[9];
  st.TSiedeDb = r.V[10];
  st.TSchmelz = V(93) > kPresent ? r.V[93] : r.V[91];
  st.VWilsonDb = r.V[1];

  for (int k = 0; k <= 8; ++k) g.rho[k] = r.V[static_cast<std::size_t>(12 + k)];
  g.rho.TLo = CInt(V(21));
  g.rho.THi = CInt(V(22));

  for (int k = 0; k <= 9; ++k) g.fro[k] = r.V[static_cast<std::size_t>(23 + k)];
  g.fro.TLo = CInt(V(33));
  g.fro.THi = CInt(V(34));

  g.alp.A = r.V[36];
  g.alp.B = r.V[37];
  g.alp.C = r.V[38];
  g.alp.TLo = CInt(V(39));
  g.alp.THi = CInt(V(40));

  g.ahp.A = r.V[42];
  g.ahp.B = r.V[43];
  g.ahp.C = r.V[44];
  g.ahp.TLo = CInt(V(45));
  g.ahp.THi = CInt(V(46));

  for (int k = 0; k <= 10; ++k) g.wag[k] = r.V[static_cast<std::size_t>(47 + k)];
  g.wag.TLo = CInt(V(58));
  g.wag.THi = CInt(V(59));

  for (int k = 0; k <= 5; ++k) g.lvh[k] = r.V[static_cast<std::size_t>(96 + k)];
  g.lvh[6] = r.V[102];
  g.lvh[8] = r.V[95];
  g.lvh.TLo = CInt(V(103));
  g.lvh.THi = CInt(V(104));
  return g;
}

// Equation code of a component whose stored code is not one of the five: the last test that
// holds wins, so the preference is FRO, WAG, ALP, AHP, AUG; blank when none holds.
void ChooseEquation(Session& s, int i) {
  if (IsKeptCode(s.P0Eq[i])) return;
  std::string code;
  if (s.ParAUG[i].A > kPresent) code = "AUG";
  if (s.ParAHP[i].TLo != 0) code = "AHP";
  if (s.ParALP[i].TLo != 0) code = "ALP";
  if (s.ParWAG[i].TLo != 0) code = "WAG";
  if (std::abs(s.ParFRO[i].TLo) != 0) code = "FRO";
  s.P0Eq[i] = code;
}

// WILSON volume: the database value, else 1000 * VLiq at 25 °C from the density function when
// the density walk over the mixture succeeds. The walk runs over all components and stops at
// the first without a density function, so the components behind that one get no value.
void ChooseWilsonVolume(Session& s, int i) {
  StoffRecord& st = s.StoffData[i];
  if (st.VWilsonDb <= kPresent) {
    Vec<int16_t> dT(static_cast<std::size_t>(s.NKomp) + 1, 0);
    int16_t ok = 0;
    LiquidVolumes(s, kTWilson, dT, ok);
    if (ok == -1) {
      try {
        const float v = CSng(1000.0 * static_cast<double>(s.VLiq[i]));
        s.VLiqCm3[i] = v;
        st.VWilsonDb = v;
      } catch (const NumericFault&) {
        // An absurd volume counts as none.
      }
    }
  } else {
    s.VLiqCm3[i] = st.VWilsonDb;
  }
  if (st.VWilsonDb <= kPresent) s.AlleVWilson = false;
}

// LoadSubstance with the reason of a failure (the system's error text).
bool LoadOne(Session& s, int i, std::string& err) {
  if (i < 1 || i > s.NKomp) {
    err = "Subscript out of range";
    return false;
  }
  Q07Record r;
  if (!ReadQ07Record(BankPfadDatei(s), static_cast<int>(s.KompIdx[i]) + 1, r, err)) return false;
  StagedSubstance g;
  try {
    g = Stage(r, s.NamenEnglisch);
  } catch (const NumericFault&) {
    err = "Overflow";
    return false;
  }

  s.StoffData[i] = std::move(g.stoff);
  s.MolMasse[i] = g.molMasse;
  s.TKrit[i] = g.tKrit;
  if (g.tKrit > s.TKritMax) s.TKritMax = g.tKrit;
  s.PKrit[i] = g.pKrit;
  if (g.pKrit > s.PKritMax) s.PKritMax = g.pKrit;
  s.RhoKrit[i] = g.rhoKrit;
  s.Omega[i] = g.omega;
  if (std::fabs(static_cast<double>(g.omega)) <= kPresent) s.AlleOmega = false;
  s.ParALP[i] = g.alp;
  s.ParAHP[i] = g.ahp;
  s.ParFRO[i] = g.fro;
  s.ParWAG[i] = g.wag;
  s.ParRho[i] = g.rho;
  s.ParLVH[i] = g.lvh;

  ChooseEquation(s, i);
  ChooseWilsonVolume(s, i);
  return true;
}

// The AUGUST line ln(p/kPa) = A + B/T through the normal boiling point and the critical point.
void AugustLine(Session& s, int i) {
  const double tc = s.TKrit[i];
  const double pc = s.PKrit[i];
  ParAugust& aug = s.ParAUG[i];
  if (!(tc * pc > kPresent)) {
    aug.A = 0;
    return;
  }
  try {
    const double tb = s.TSiede[i];
    const float b = CSng(chk::Div(tb * tc * chk::Ln(pc / kPNormal), tb - tc));
    const float a = CSng(chk::Ln(pc) - chk::Div(b, tc));
    const int16_t lo = CInt(tb);
    const int16_t hi = CInt(tc);
    aug.A = a;
    aug.B = b;
    aug.TLo = lo;
    aug.THi = hi;
  } catch (const NumericFault&) {
    // No line through the two points (e.g. TSiede equal to TKrit): no AUGUST equation.
    aug.A = 0;
  }
}

}  // namespace

std::string& BankNurName(std::string& name) {
  const std::size_t p = name.find_last_of("\\/");
  if (p != std::string::npos) name.erase(0, p + 1);
  return name;
}

void BankOeffnen(Session& s, const std::string& name, bool& notFound, bool& empty) {
  notFound = false;
  empty = false;
  const fs::path path = ResolveBankPath(s.PfadBank, name);
  std::error_code ec;
  if (name.empty() || !fs::is_regular_file(path, ec)) {
    notFound = true;
    return;
  }
  std::ifstream f(path, std::ios::binary);
  if (!f) {
    notFound = true;
    return;
  }
  f.seekg(0, std::ios::end);
  const std::streamoff size = f.tellg();
  f.seekg(0, std::ios::beg);
  if (size <= 0) {
    // Nothing in it: a count of zero.
    empty = size == 0;
    notFound = size != 0;
    return;
  }
  unsigned char buf[kQ07RecordLength];
  if (size < kQ07RecordLength || !f.read(reinterpret_cast<char*>(buf), kQ07RecordLength)) {
    notFound = true;  // not even a header record: no database
    return;
  }
  const int count = DecodeQ07Record(buf).Nr;
  if (count < 1) {
    empty = true;
    return;
  }
  if (size < static_cast<std::streamoff>(count + 1) * kQ07RecordLength) {
    notFound = true;  // shorter than its count says: truncated, or not a database at all
    return;
  }

  const std::size_t m = static_cast<std::size_t>(count) + 1;
  Vec<std::string> formel(m), bankName(m), cas(m);
  Vec<int16_t> nr(m, 0);
  for (int n = 1; n <= count; ++n) {
    if (!f.read(reinterpret_cast<char*>(buf), kQ07RecordLength)) {
      notFound = true;
      return;
    }
    const Q07Record r = DecodeQ07Record(buf);
    const auto k = static_cast<std::size_t>(n);
    formel[k] = FixedField(r.Formel, kFormelWidth);
    bankName[k] = FixedField(s.NamenEnglisch ? r.Name1 : r.Name2, kNameWidth);
    cas[k] = FixedField(r.CasNr, kCasWidth);
    nr[k] = r.Nr;
  }

  std::swap(s.BankFormel, formel);
  std::swap(s.BankName, bankName);
  std::swap(s.BankCAS, cas);
  std::swap(s.BankNr, nr);
  s.BankAnz = static_cast<int16_t>(count);
  s.BankOffen = true;
  if (HasDirectory(name)) {
    fs::path dir = path.parent_path();
    s.PfadBank = dir.empty() ? std::string() : dir.generic_string() + "/";
  }
  s.BankDatei = path.filename().string();
}

std::string BankPfadDatei(const Session& s) {
  return ResolveBankPath(s.PfadBank, s.BankDatei).string();
}

int CASSuchen(const Session& s, const std::string& casrn) {
  const std::string key = Trim(casrn);
  for (int n = 1; n <= s.BankAnz && static_cast<std::size_t>(n) < s.BankCAS.size(); ++n)
    if (Trim(s.BankCAS[static_cast<std::size_t>(n)]) == key) return n;
  return 0;
}

bool LoadSubstance(Session& s, int i) {
  std::string err;
  return LoadOne(s, i, err);
}

void LoadSubstances(Session& s, bool& ok, MsgSink* sink) {
  ok = false;
  if (s.NKomp <= 0) return;
  const int n = s.NKomp;

  // 1. Start values.
  ok = true;
  s.AlleOmega = true;
  s.AlleVWilson = true;
  s.TKritMax = 0;
  s.PKritMax = 0;

  // 2. The records, with equation codes and WILSON volumes.
  for (int i = 1; i <= n; ++i) {
    std::string err;
    if (!LoadOne(s, i, err)) {
      Post(sink, "Error", err, MsgIcon::Stop);
      ok = false;
      s.LoadOK = false;
      return;
    }
  }

  // 3. Every component needs a vapour-pressure equation or its critical point.
  for (int i = 1; i <= n; ++i) {
    const bool crit = s.TKrit[i] > kPresent && s.PKrit[i] > kPresent;
    const int limits = s.ParALP[i].TLo + s.ParAHP[i].TLo + s.ParFRO[i].TLo + s.ParWAG[i].TLo;
    if (!crit && std::abs(limits) < kPresent) {
      Post(sink, kTitleNoEquation, std::string(kMsgNoEquation) + kNL + RTrim(s.StoffData[i].Name),
           MsgIcon::Stop);
      ok = false;
      s.LoadOK = false;
      return;
    }
  }

  // 4. Pair critical data.
  int16_t err = 0;
  PairCrit(s, err);
  s.KritOK = err == 0;

  // 5. Normal boiling points by the chosen equations.
  for (int i = 1; i <= n; ++i) {
    std::string code = s.P0Eq[i];
    int16_t e = 0;
    std::string info;
    s.TSiede[i] = BoilingT(s, i, code, e, info);
    s.P0Eq[i] = code;
  }

  // 6. AUGUST lines.
  for (int i = 1; i <= n; ++i) AugustLine(s, i);

  s.LoadOK = ok;
}

}  // namespace peq
