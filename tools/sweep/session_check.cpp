#include "session_check.h"

#include <cmath>
#include <string>

namespace peq::check {

namespace {

// Each Scan returns false at the first non-finite value and names it in where.
template <class T>
bool Finite(T v) {
  return std::isfinite(static_cast<double>(v));
}

template <class T>
bool Scan(const char* name, const Vec<T>& v, std::string& where) {
  for (std::size_t i = 0; i < v.size(); ++i)
    if (!Finite(v[i])) {
      where = std::string(name) + "(" + std::to_string(i) + ")";
      return false;
    }
  return true;
}

template <class T>
bool Scan(const char* name, const Mat<T>& m, std::string& where) {
  for (std::size_t i = 0; i < m.size(); ++i)
    for (std::size_t j = 0; j < m.size(); ++j)
      if (!Finite(m(i, j))) {
        where = std::string(name) + "(" + std::to_string(i) + "," + std::to_string(j) + ")";
        return false;
      }
  return true;
}

bool ScanScalar(const char* name, double v, std::string& where) {
  if (Finite(v)) return true;
  where = name;
  return false;
}

template <class R>
bool ScanSlots(const char* name, const Vec<R>& v, std::string& where) {
  for (std::size_t i = 0; i < v.size(); ++i)
    for (std::size_t k = 0; k < v[i].s.size(); ++k)
      if (!Finite(v[i].s[k])) {
        where = std::string(name) + "(" + std::to_string(i) + ")[" + std::to_string(k) + "]";
        return false;
      }
  return true;
}

template <class R>
bool ScanAntoine(const char* name, const Vec<R>& v, std::string& where) {
  for (std::size_t i = 0; i < v.size(); ++i)
    if (!Finite(v[i].A) || !Finite(v[i].B) || !Finite(v[i].C)) {
      where = std::string(name) + "(" + std::to_string(i) + ")";
      return false;
    }
  return true;
}

bool ScanAugust(const Vec<ParAugust>& v, std::string& where) {
  for (std::size_t i = 0; i < v.size(); ++i)
    if (!Finite(v[i].A) || !Finite(v[i].B) || !Finite(v[i].Spare)) {
      where = "ParAUG(" + std::to_string(i) + ")";
      return false;
    }
  return true;
}

bool ScanStoff(const Vec<StoffRecord>& v, std::string& where) {
  for (std::size_t i = 0; i < v.size(); ++i) {
    const StoffRecord& r = v[i];
    if (!Finite(r.TSiedeDb) || !Finite(r.TSchmelz) || !Finite(r.VWilsonDb) || !Finite(r.RUniquac) ||
        !Finite(r.QUniquac)) {
      where = "StoffData(" + std::to_string(i) + ")";
      return false;
    }
  }
  return true;
}

bool ScanGEPar(const Session& s, std::string& where) {
  const std::size_t n = s.GEPar.size();
  for (std::size_t k = 0; k < s.GEPar.depth(); ++k)
    for (std::size_t i = 0; i < n; ++i)
      for (std::size_t j = 0; j < n; ++j)
        if (!Finite(s.GEPar(k, i, j))) {
          where = "GEPar(" + std::to_string(k) + "," + std::to_string(i) + "," + std::to_string(j) + ")";
          return false;
        }
  return true;
}

bool ScanResults(const Session& s, std::string& w) {
  return Scan("P0", s.P0, w) && Scan("VLiq", s.VLiq, w) && Scan("VLiqCm3", s.VLiqCm3, w) &&
         Scan("Phi0", s.Phi0, w) && Scan("BVir", s.BVir, w) && Scan("Gamma", s.Gamma, w) &&
         Scan("PhiVMix", s.PhiVMix, w) && Scan("PhiKorr", s.PhiKorr, w) && Scan("KWert", s.KWert, w) &&
         Scan("YGas", s.YGas, w) && Scan("XLiq", s.XLiq, w) && Scan("CompMat[0]", s.CompMat[0], w) &&
         Scan("CompMat[1]", s.CompMat[1], w) && Scan("TSiede", s.TSiede, w);
}

}  // namespace

std::string FirstNonFiniteResult(const Session& s) {
  std::string w;
  ScanResults(s, w);
  return w;
}

std::string FirstNonFinite(const Session& s) {
  std::string w;
  const UnifacTables& u = s.Unifac;
  const bool ok =
      // Pure-component data and parameter records.
      Scan("MolMasse", s.MolMasse, w) && Scan("TKrit", s.TKrit, w) && Scan("PKrit", s.PKrit, w) &&
      Scan("RhoKrit", s.RhoKrit, w) && Scan("Omega", s.Omega, w) && ScanStoff(s.StoffData, w) &&
      ScanAugust(s.ParAUG, w) && ScanAntoine("ParALP", s.ParALP, w) && ScanAntoine("ParAHP", s.ParAHP, w) &&
      ScanSlots("ParFRO", s.ParFRO, w) && ScanSlots("ParWAG", s.ParWAG, w) && ScanSlots("ParRho", s.ParRho, w) &&
      ScanSlots("ParLVH", s.ParLVH, w) &&
      // Mixture tables and models.
      Scan("TcMix", s.TcMix, w) && Scan("PcMix", s.PcMix, w) && Scan("OmegaMix", s.OmegaMix, w) &&
      ScanScalar("TKritMax", s.TKritMax, w) && ScanScalar("PKritMax", s.PKritMax, w) && ScanGEPar(s, w) &&
      Scan("EOSa0", s.EOSa0, w) && Scan("EOSaExp", s.EOSaExp, w) && Scan("EOSb0", s.EOSb0, w) &&
      Scan("EOSc0", s.EOSc0, w) && Scan("EOSd0", s.EOSd0, w) && Scan("EOSbExp", s.EOSbExp, w) &&
      Scan("EOScExp", s.EOScExp, w) && Scan("EOSdExp", s.EOSdExp, w) && Scan("VKrit", s.VKrit, w) &&
      Scan("RhoKritEOS", s.RhoKritEOS, w) &&
      // Group tables.
      Scan("ModA", u.ModA, w) && Scan("ModB", u.ModB, w) && Scan("ModC", u.ModC, w) && Scan("ModR", u.ModR, w) &&
      Scan("ModQ", u.ModQ, w) && Scan("OUnifA", u.OUnifA, w) && Scan("OUnifR", u.OUnifR, w) &&
      Scan("OUnifQ", u.OUnifQ, w) &&
      // Settings kept in projects.
      ScanScalar("TIso", s.TIso, w) && ScanScalar("PIso", s.PIso, w) && ScanScalar("XIso", s.XIso, w) &&
      ScanScalar("TCalc", s.TCalc, w) && ScanScalar("PCalc", s.PCalc, w) && ScanScalar("EtaVCalc", s.EtaVCalc, w) &&
      ScanScalar("TOffsetIn", s.TOffsetIn, w) && ScanScalar("TOffsetOut", s.TOffsetOut, w) &&
      ScanScalar("FuFaktor", s.FuFaktor, w) && Scan("StoffMenge", s.StoffMenge, w) &&
      ScanScalar("RueckLauf", s.RueckLauf, w) && ScanScalar("DruckVerlust", s.DruckVerlust, w) &&
      ScanScalar("BatchGenau", s.BatchGenau, w) && ScanScalar("BatchMaxIter", s.BatchMaxIter, w) &&
      ScanScalar("BatchZeit", s.BatchZeit, w) && Scan("FeedN", s.FeedN, w) && Scan("Feed", s.Feed, w) &&
      ScanScalar("XMin", s.XMin, w) && ScanScalar("XMax", s.XMax, w) && ScanScalar("YMin", s.YMin, w) &&
      ScanScalar("YMax", s.YMax, w) && ScanScalar("GapX1", s.GapX1, w) && ScanScalar("GapX2", s.GapX2, w) &&
      ScanScalar("GapW1", s.GapW1, w) && ScanScalar("GapW2", s.GapW2, w) && ScanScalar("GapY", s.GapY, w) &&
      // Results of the last calculation.
      ScanResults(s, w);
  return ok ? std::string() : w;
}

}  // namespace peq::check
