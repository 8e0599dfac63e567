#include "models/activity.h"

#include "models/nrtl.h"
#include "models/redlichkister.h"
#include "models/unifac.h"
#include "models/uniquac.h"
#include "models/wilson.h"
#include "session/numeric.h"

namespace peq {

namespace {

// xOwn is the caller's array when it may be changed (UNIFAC writes its 1E-10 into it), else null.
void Dispatch(Session& s, double T, const Vec<double>& x, Vec<double>* xOwn, Vec<double>& gamma,
              int16_t& err) {
  err = 0;
  const int n = s.NKomp;
  if (n < 1) return;
  switch (s.GEModel) {
    case 0:
      for (int i = 1; i <= n; ++i) gamma[i] = 1.0;
      return;
    case 1:
      WilsonGamma(s, T, x, gamma, err);
      break;
    case 2:
      NRTLGamma(s, T, x, gamma, err);
      break;
    case 4:
      RedlichKisterGamma(s, T, x, gamma, err);
      break;
    case 9:
      UniquacGamma(s, T, x, gamma, err);
      break;
    case 20:
      ModUnifacGamma(s, T, x, gamma, err);
      s.UnifacNeu = false;
      break;
    case 21: {
      GEState& w = s.GEWork;
      const std::size_t m = static_cast<std::size_t>(n) + 1;
      if (w.Incr.size() != m) w.Incr.assign(m);
      for (int i = 1; i <= n; ++i) w.Incr[i] = s.StoffData[i].OUnifInkr;
      Vec<double>* xs = xOwn;
      if (xs == nullptr) {
        if (w.XCopy.size() != m) w.XCopy.assign(m, 0.0);
        for (int i = 1; i <= n; ++i) w.XCopy[i] = x[i];
        xs = &w.XCopy;
      }
      float t32 = 0.0f;
      try {
        t32 = CSng(T);
        OUnifacGamma(s, w.Incr, t32, *xs, gamma, err);
      } catch (const NumericFault&) {
        err = -1;
      }
      s.UnifacNeu = false;
      break;
    }
    default:
      return;  // no model (-1) or a code without a model: gamma stays as it was
  }
  if (err != 0) {
    err = -1;
    for (int i = 1; i <= n; ++i) gamma[i] = 1.0;
  }
}

}  // namespace

void ActivityCoeffs(Session& s, double T, const Vec<double>& x, Vec<double>& gamma, int16_t& err) {
  Dispatch(s, T, x, nullptr, gamma, err);
}

void ActivityCoeffs(Session& s, double T, Vec<double>& x, Vec<double>& gamma, int16_t& err) {
  Dispatch(s, T, x, &x, gamma, err);
}

}  // namespace peq
