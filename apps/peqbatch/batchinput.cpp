#include "batchinput.h"

#include <cmath>

#include "companions/componentblock.h"
#include "companions/exchangetext.h"
#include "models/eos_pure.h"
#include "models/vappressure.h"
#include "models/virial.h"
#include "session/constants.h"
#include "session/numeric.h"
#include "session/writefmt.h"

namespace peqbatch {

namespace {

float Sgl(double v) {
  try {
    return peq::CSng(v);
  } catch (const peq::NumericFault&) {
    throw peq::ExchangeError{"value beyond single precision"};
  }
}

// Rebuilds the 41-character increment text from a group line "n,f1,..,fn".
std::string Inkrement(const std::string& line) {
  std::vector<std::string> f;
  std::size_t p = 0;
  while (p <= line.size()) {
    std::size_t e = line.find(',', p);
    if (e == std::string::npos) e = line.size();
    f.push_back(line.substr(p, e - p));
    p = e + 1;
  }
  double n = 0;
  if (f.empty() || !peq::ParseNumber(f[0], n) || n < 0 || n > 7 || n != std::floor(n))
    throw peq::ExchangeError{"a group line without its count"};
  const std::size_t k = static_cast<std::size_t>(n);
  if (f.size() < k + 1) throw peq::ExchangeError{"a group line shorter than its count"};
  std::string t = "00000,00000,00000,00000,00000,00000,00000";
  for (std::size_t g = 0; g < k; ++g) {
    double v = 0;
    if (!peq::ParseNumber(f[g + 1], v) || v <= 0 || v > 99999 || v != std::floor(v))
      throw peq::ExchangeError{"a group field that is no group"};
    char buf[8];
    std::snprintf(buf, sizeof buf, "%05d", static_cast<int>(v));
    t.replace(6 * g, 5, buf);
  }
  return t;
}

}  // namespace

void ReadToBatch(std::string_view text, Aufgabe& a) {
  a = Aufgabe{};
  peq::Session& s = a.S;
  peq::ExchangeReader r(text);
  const int n = static_cast<int>(r.Integer(2, 10));
  s.NKomp = static_cast<int16_t>(n);
  peq::AllocSession(s, n);
  s.GEModel = static_cast<int16_t>(r.Integer(0, 21));
  if (s.GEModel != 0 && s.GEModel != 1 && s.GEModel != 2 && s.GEModel != 9 && s.GEModel != 20 && s.GEModel != 21)
    throw peq::ExchangeError{"no batch distillation with the gE model " + std::to_string(s.GEModel)};
  const int16_t unit = static_cast<int16_t>(r.Integer(0, 9));
  if (s.GEModel == 1) s.ParUnitWilson = unit;
  if (s.GEModel == 2) s.ParUnitNRTL = unit;
  if (s.GEModel == 9) s.ParUnitUNIQUAC = unit;
  s.VapModel = static_cast<int16_t>(r.Integer(0, 5));
  s.PIso = r.Real();
  s.DruckVerlust = Sgl(r.Real());
  s.NBoden = static_cast<int16_t>(r.Integer(1, 100));
  s.RueckLauf = Sgl(r.Real());
  s.NFrak = static_cast<int16_t>(r.Integer(1, 10000));
  s.NSchritte = static_cast<int16_t>(r.Integer(2, 30000));
  s.BatchZeit = Sgl(r.Real());
  a.Start.TKopfStart = Sgl(r.Real());
  a.Start.TSumpfStart = Sgl(r.Real());
  a.Start.RestMenge = Sgl(r.Real());
  s.BatchGenau = Sgl(r.Real());
  s.BatchMaxIter = Sgl(r.Real());
  if (!(s.PIso > 0) || s.DruckVerlust < 0 || !(s.RueckLauf > 0) || !(s.BatchZeit > 0) || !(a.Start.RestMenge > 0) ||
      !(s.BatchGenau > 0) || !(s.BatchMaxIter >= 1))
    throw peq::ExchangeError{"a batch setting out of its range"};
  for (int i = 1; i <= n; ++i) peq::ReadComponentBlock(r, s, i);
  if (s.GEModel == 20 || s.GEModel == 21)
    for (int i = 1; i <= n; ++i) {
      const std::string t = Inkrement(r.Line());
      (s.GEModel == 20 ? s.StoffData[i].ModUnifInkr : s.StoffData[i].OUnifInkr) = t;
    }
  for (int i = 1; i <= n; ++i)
    for (int j = i + 1; j <= n; ++j)
      for (int k = 1; k <= 9; k += 2) {
        s.GEPar(k, i, j) = r.Real();
        s.GEPar(k + 1, i, j) = r.Real();
        s.GEPar(k, j, i) = r.Real();
        s.GEPar(k + 1, j, i) = r.Real();
      }
  double f = 0;
  for (int i = 1; i <= n; ++i) {
    s.StoffMenge[i] = Sgl(r.Real());
    if (s.StoffMenge[i] < 0) throw peq::ExchangeError{"a negative amount in the stillpot"};
    f += s.StoffMenge[i];
  }
  while (!r.AtEnd())
    if (!r.Line().empty()) throw peq::ExchangeError{"more lines than the file should have"};
  if (!(f > a.Start.RestMenge)) throw peq::ExchangeError{"the residue is not below the filling"};
  s.TKritMax = 0;
  s.PKritMax = 0;
  s.AlleOmega = true;
  s.AlleVWilson = true;
  for (int i = 1; i <= n; ++i) {
    if (s.TKrit[i] > s.TKritMax) s.TKritMax = s.TKrit[i];
    if (s.PKrit[i] > s.PKritMax) s.PKritMax = s.PKrit[i];
    if (std::fabs(static_cast<double>(s.Omega[i])) <= peq::kPresent) s.AlleOmega = false;
    if (s.VLiqCm3[i] <= peq::kPresent) s.AlleVWilson = false;
    std::string code = s.P0Eq[i];
    int16_t e = 0;
    std::string info;
    s.TSiede[i] = peq::BoilingT(s, i, code, e, info);
  }
  int16_t err = 0;
  peq::PairCrit(s, err);
  s.KritOK = err == 0;
  if (s.VapModel >= 3 && !peq::EOSTabellenBerechnen(s))
    throw peq::ExchangeError{"no equation of state for the vapour model " + std::to_string(s.VapModel)};
}

}  // namespace peqbatch
