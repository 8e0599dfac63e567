#include "models/gmix.h"

#include "models/activity.h"
#include "session/constants.h"
#include "session/numeric.h"

namespace peq {

namespace {

// Step of the forward difference of mode 2.
constexpr double kDx = 1E-5;

// ln(gamma2/gamma1) at (x1, x2); err -1 when the gamma call failed.
double LnRatio(Session& s, double T, Vec<double>& x, double x1, double x2, int16_t& err) {
  x[1] = x1;
  x[2] = x2;
  int16_t e = 0;
  ActivityCoeffs(s, T, x, s.Gamma, e);
  if (e != 0) err = -1;
  return chk::Ln(chk::Div(s.Gamma[2], s.Gamma[1]));
}

}  // namespace

void GMix(Session& s, double T, int16_t mode, double x2, double& Gid, double& GE, double& GM,
          int16_t& err) {
  err = 0;
  if (x2 > 1.0) x2 = 1.0;
  const double x1 = 1.0 - x2;
  Vec<double>& x = s.GEWork.XMix;
  const std::size_t m = static_cast<std::size_t>(s.NKomp < 2 ? 2 : s.NKomp) + 1;
  if (x.size() != m) x.assign(m, 0.0);
  for (std::size_t i = 0; i < m; ++i) x[i] = 0.0;
  if (s.Gamma.size() < m) return;
  const double RT = kR * T;
  try {
    double gid = Gid, ge = 0.0;
    switch (mode) {
      case 0: {
        x[1] = x1;
        x[2] = x2;
        int16_t e = 0;
        ActivityCoeffs(s, T, x, s.Gamma, e);
        if (e != 0) err = -1;
        ge = RT * (x1 * chk::Ln(s.Gamma[1]) + x2 * chk::Ln(s.Gamma[2]));
        gid = (x1 == 0.0 || x2 == 0.0) ? 0.0 : RT * (x1 * chk::Ln(x1) + x2 * chk::Ln(x2));
        break;
      }
      case 1:
        ge = RT * LnRatio(s, T, x, x1, x2, err);
        if (x1 != 0.0 && x2 != 0.0) gid = RT * chk::Ln(chk::Div(x2, x1));
        break;
      case 2: {
        const double at = LnRatio(s, T, x, x1, x2, err);
        const double x2s = x2 + kDx;
        const double shifted = LnRatio(s, T, x, 1.0 - x2s, x2s, err);
        ge = RT * ((shifted - at) / kDx);
        if (x1 != 0.0 && x2 != 0.0) gid = RT * chk::Div(1.0, x1 * x2);
        break;
      }
      default:
        return;
    }
    const double gm = chk::Fin(chk::Fin(gid) + chk::Fin(ge));
    Gid = gid;
    GE = ge;
    GM = gm;
  } catch (const NumericFault&) {
    err = -1;
  }
}

}  // namespace peq
