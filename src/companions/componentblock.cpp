#include "companions/componentblock.h"

#include "session/constants.h"
#include "session/numeric.h"

namespace peq {

namespace {

// How many parameters of its equation follow the code, and where they start.
int EquationCount(const std::string& code) {
  if (code == "AUG") return 2;
  if (code == "ALP" || code == "AHP") return 3;
  if (code == "FRO") return 9;
  if (code == "WAG") return 10;
  return 0;
}

float Sgl(double v) { return CSng(v); }

}  // namespace

void AppendComponentBlock(const Session& s, int i, std::string& out) {
  const StoffRecord& st = s.StoffData[i];
  for (double v : {double(s.MolMasse[i]), double(s.TKrit[i]), double(s.PKrit[i]), double(s.RhoKrit[i]),
                   double(s.Omega[i]), double(st.RUniquac), double(st.QUniquac)})
    AppendLine(out, Muster(v));
  for (int k = 1; k <= 8; ++k) AppendLine(out, Muster(s.ParRho[i][k]));
  AppendLine(out, s.WilsonVFix ? "-1" : "0");
  AppendLine(out, Muster(s.VLiqCm3[i]));
  std::string code = s.P0Eq[i];
  code.resize(3, ' ');
  AppendLine(out, code);
  if (code == "AUG") {
    AppendLine(out, Muster(s.ParAUG[i].A));
    AppendLine(out, Muster(s.ParAUG[i].B));
  } else if (code == "ALP" || code == "AHP") {
    const ParAntoine& a = code == "ALP" ? s.ParALP[i] : s.ParAHP[i];
    AppendLine(out, Muster(a.A));
    AppendLine(out, Muster(a.B));
    AppendLine(out, Muster(a.C));
  } else if (code == "FRO") {
    for (int k = 1; k <= 9; ++k) AppendLine(out, Muster(s.ParFRO[i][k]));
  } else if (code == "WAG") {
    for (int k = 1; k <= 10; ++k) AppendLine(out, Muster(s.ParWAG[i][k]));
  }
}

void ReadComponentBlock(ExchangeReader& r, Session& s, int i) {
  try {
    s.MolMasse[i] = Sgl(r.Real());
    s.TKrit[i] = Sgl(r.Real());
    s.PKrit[i] = Sgl(r.Real());
    s.RhoKrit[i] = Sgl(r.Real());
    s.Omega[i] = Sgl(r.Real());
    s.StoffData[i].RUniquac = Sgl(r.Real());
    s.StoffData[i].QUniquac = Sgl(r.Real());
    for (int k = 1; k <= 8; ++k) s.ParRho[i][k] = Sgl(r.Real());
    s.WilsonVFix = r.Flag();
    s.VLiqCm3[i] = Sgl(r.Real());
    std::string code = r.Line();
    s.P0Eq[i] = code;
    const int n = EquationCount(code);
    if (code == "AUG") {
      s.ParAUG[i].A = Sgl(r.Real());
      s.ParAUG[i].B = Sgl(r.Real());
    } else if (code == "ALP" || code == "AHP") {
      ParAntoine& a = code == "ALP" ? s.ParALP[i] : s.ParAHP[i];
      a.A = Sgl(r.Real());
      a.B = Sgl(r.Real());
      a.C = Sgl(r.Real());
    } else if (code == "FRO") {
      for (int k = 1; k <= n; ++k) s.ParFRO[i][k] = Sgl(r.Real());
    } else if (code == "WAG") {
      for (int k = 1; k <= n; ++k) s.ParWAG[i][k] = Sgl(r.Real());
    } else {
      throw ExchangeError{"unknown vapour-pressure equation \"" + code + "\""};
    }
  } catch (const NumericFault&) {
    throw ExchangeError{"value beyond single precision in the block of component " + std::to_string(i)};
  }
}

}  // namespace peq
