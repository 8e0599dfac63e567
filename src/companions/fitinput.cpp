#include "companions/fitinput.h"

#include <cmath>

#include "companions/componentblock.h"
#include "companions/exchangetext.h"
#include "companions/fitmap.h"
#include "models/eos_pure.h"
#include "models/vappressure.h"
#include "models/virial.h"
#include "session/constants.h"
#include "session/numeric.h"

namespace peq {

namespace {

constexpr long kMaxPunkte = 100000;

float Sgl(double v) {
  try {
    return CSng(v);
  } catch (const NumericFault&) {
    throw ExchangeError{"value beyond single precision"};
  }
}

FitPunkt ReadPunkt(ExchangeReader& r) {
  const std::vector<double> v = r.Reals(4);
  FitPunkt p{v[0], v[1], v[2], v[3], false};
  if (!(p.T > 0) || !(p.p > 0) || p.x2L < 0 || p.x2L > 1 || p.x2V < 0 || p.x2V > 1)
    throw ExchangeError{"point outside 0 < T, 0 < p, 0 <= x <= 1 in line " + std::to_string(r.LineNo())};
  return p;
}

void CheckLimits(const FitTabelle& t) {
  for (std::size_t i = 0; i < kFitSlots; ++i)
    if (!t.Fest[i] && t.Unten[i] > t.Oben[i])
      throw ExchangeError{"lower limit above the upper one at slot " + std::to_string(i)};
}

void Totals(Session& s) {
  s.TKritMax = 0;
  s.PKritMax = 0;
  s.AlleOmega = true;
  s.AlleVWilson = true;
  for (int i = 1; i <= s.NKomp; ++i) {
    if (s.TKrit[i] > s.TKritMax) s.TKritMax = s.TKrit[i];
    if (s.PKrit[i] > s.PKritMax) s.PKritMax = s.PKrit[i];
    if (std::fabs(static_cast<double>(s.Omega[i])) <= kPresent) s.AlleOmega = false;
    if (s.VLiqCm3[i] <= kPresent) s.AlleVWilson = false;
  }
  int16_t err = 0;
  PairCrit(s, err);
  s.KritOK = err == 0;
}

void ReadToFit(ExchangeReader& r, FitAufgabe& a) {
  Session& s = a.S;
  for (std::size_t i = 0; i < kFitSlots; ++i) {
    a.Tabelle.Fest[i] = r.Flag();
    a.Tabelle.Start[i] = Sgl(r.Real());
    a.Tabelle.Unten[i] = Sgl(r.Real());
    a.Tabelle.Oben[i] = Sgl(r.Real());
  }
  s.GEModel = static_cast<int16_t>(r.Integer(0, 21));
  if (s.GEModel != 1 && s.GEModel != 2 && s.GEModel != 4 && s.GEModel != 9)
    throw ExchangeError{"no fit for the gE model " + std::to_string(s.GEModel)};
  s.VapModel = static_cast<int16_t>(r.Integer(0, 5));
  s.GEPar(7, 1, 2) = r.Real();
  s.GEPar(8, 1, 2) = r.Real();
  s.GEPar(7, 2, 1) = r.Real();
  s.GEPar(8, 2, 1) = r.Real();
  a.FitArt = static_cast<int16_t>(r.Integer(0, 2));
  const long n = r.Integer(0, kMaxPunkte);
  for (long k = 0; k < n; ++k) a.Punkte.push_back(ReadPunkt(r));
  ReadComponentBlock(r, s, 1);
  ReadComponentBlock(r, s, 2);
  Totals(s);
  for (int i = 1; i <= 2; ++i) {
    std::string code = s.P0Eq[i];
    int16_t e = 0;
    std::string info;
    s.TSiede[i] = BoilingT(s, i, code, e, info);
  }
  FitEinheitSetzen(s);
  if (s.VapModel >= 3 && !EOSTabellenBerechnen(s))
    throw ExchangeError{"no equation of state for the vapour model " + std::to_string(s.VapModel)};
}

void ReadToFitz(ExchangeReader& r, FitAufgabe& a) {
  Session& s = a.S;
  s.Konzept = true;
  for (int g = 1; g <= 6; ++g) {
    const std::vector<double> start = r.Reals(4), oben = r.Reals(4), unten = r.Reals(4), fest = r.Reals(4);
    if (g > 3) continue;
    for (std::size_t k = 0; k < 4; ++k) {
      const std::size_t i = static_cast<std::size_t>(4 * (g - 1)) + k;
      if (fest[k] != 0 && fest[k] != -1) throw ExchangeError{"a fixed flag is not -1 or 0"};
      a.Tabelle.Start[i] = Sgl(start[k]);
      a.Tabelle.Oben[i] = Sgl(oben[k]);
      a.Tabelle.Unten[i] = Sgl(unten[k]);
      a.Tabelle.Fest[i] = fest[k] == -1;
    }
  }
  a.FitArt = static_cast<int16_t>(r.Integer(0, 2));
  const long n = r.Integer(0, kMaxPunkte);
  for (int i = 1; i <= 2; ++i) {
    const std::vector<double> c = r.Reals(5);
    s.TKrit[i] = Sgl(c[0]);
    s.PKrit[i] = Sgl(c[1]);
    s.Omega[i] = Sgl(c[2]);
    s.StoffData[i].RUniquac = Sgl(c[3]);
    s.StoffData[i].QUniquac = Sgl(c[4]);
    if (!(s.TKrit[i] > 0) || !(s.PKrit[i] > 0)) throw ExchangeError{"critical data missing"};
  }
  for (long k = 0; k < n; ++k) a.Punkte.push_back(ReadPunkt(r));
  const std::vector<double> last = r.Reals(6);
  if (last[0] < 3 || last[0] > 6 || last[0] != std::floor(last[0])) throw ExchangeError{"unknown EOS model"};
  if (last[1] != 1 && last[1] != 2 && last[1] != 5 && last[1] != 6) throw ExchangeError{"unknown mixing rule"};
  s.EOSModel = static_cast<int16_t>(last[0]);
  s.MixRule = static_cast<int16_t>(last[1]);
  a.Zaehler = static_cast<int>(last[5]);
  Totals(s);
  int16_t err = 0;
  EOSSetPure(s, s.EOSModel, err);
  if (err != 0) throw ExchangeError{"the equation of state cannot be set up"};
}

}  // namespace

void ReadFitAufgabe(std::string_view text, bool phiPhi, FitAufgabe& a) {
  a = FitAufgabe{};
  a.PhiPhi = phiPhi;
  a.S.NKomp = 2;
  AllocSession(a.S, 2);
  ExchangeReader r(text);
  if (phiPhi)
    ReadToFitz(r, a);
  else
    ReadToFit(r, a);
  while (!r.AtEnd())
    if (!r.Line().empty()) throw ExchangeError{"more lines than the file should have"};
  CheckLimits(a.Tabelle);
  if (a.Punkte.empty()) throw ExchangeError{"no active point"};
}

}  // namespace peq
