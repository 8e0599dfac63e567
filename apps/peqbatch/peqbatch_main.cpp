// PEQBATCH.EXE: batch rectification of the mixture in TO_BATCH.DAT (working directory), answer in
// from_Batch.dat. The column is quasi-steady: at every instant it stands at steady state for the
// still's composition (constant molar overflow, no holdup, total condenser); the still's balances
// are integrated with Boost.Odeint over the amount distilled. See docs/batch-model.md.
#include <boost/numeric/odeint.hpp>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <vector>

#include "batchinput.h"
#include "companions/exchangetext.h"
#include "engine/kernel.h"
#include "engine/safeguard.h"

namespace {

using Zustand = std::vector<double>;  // amounts of the components in the still, kmol

struct Kolonne {
  peq::Session& s;
  int n;
  double genau;
  int maxIter;
  double tKopf, tSumpf;   // last temperatures, K (starts for the next solve)
  std::vector<double> xD;  // last distillate composition (start of the next solve)
  peq::Vec<double> y, x, yw, K;
  // Work arrays of the Newton solve, sized once.
  std::vector<double> wxd, wxs, wxs2, wxp, wF, wJ, wd, wv;
  double letzteNorm = -1;  // max |F| of the last iteration, -1 when a dew point failed
  bool logZuerst = false;  // the last solve needed the logarithms

  // Top-down plate-to-plate for a guessed distillate: returns the liquid leaving the still.
  bool Abwaerts(const std::vector<double>& xd, std::vector<double>& xs, double& tTop) {
    const double R = s.RueckLauf, Lv = R / (R + 1), Dv = 1 / (R + 1);
    for (int i = 1; i <= n; ++i) y[i] = xd[static_cast<std::size_t>(i - 1)];
    double T = tKopf;
    for (int stufe = 1; stufe <= s.NBoden + 1; ++stufe) {
      const double p = s.PIso + (stufe - 1) * static_cast<double>(s.DruckVerlust);
      const float t = peq::SafeDewT(s, p, y, T);
      if (!(t > 0) || !std::isfinite(t)) return false;
      T = t;
      if (stufe == 1) tTop = T;
      double sum = 0;
      for (int i = 1; i <= n; ++i) sum += std::max(0.0, s.XLiq[i]);
      if (!(sum > 0)) return false;
      for (int i = 1; i <= n; ++i) x[i] = std::max(0.0, s.XLiq[i]) / sum;
      if (stufe == s.NBoden + 1) break;
      for (int i = 1; i <= n; ++i) y[i] = Lv * x[i] + Dv * xd[static_cast<std::size_t>(i - 1)];
    }
    for (int i = 1; i <= n; ++i) xs[static_cast<std::size_t>(i - 1)] = x[i];
    return true;
  }

  // Newton on the distillate composition (n - 1 unknowns, the last by closure) so that the still
  // liquid found top-down equals xw; the Jacobian by forward differences.
  bool Loesen(const std::vector<double>& xw) {
    // Once the logarithms were needed they are tried first: the still only gets harder to match.
    if (logZuerst && NewtonLog(xw)) return true;
    if (NewtonLin(xw)) return true;
    // Retry from an estimate of total reflux: x_D(i) ~ x_W(i) K(i)^(stages), with K from the
    // still's last bubble point, damped to the reflux ratio's share.
    const double R = s.RueckLauf, stufen = 1 + s.NBoden * R / (R + 1);
    double sum = 0;
    for (int i = 1; i <= n; ++i) {
      const std::size_t c = static_cast<std::size_t>(i - 1);
      const double Ki = xw[c] > 0 ? std::max(1e-12, yw[i] / xw[c]) : 1.0;
      xD[c] = xw[c] * std::pow(Ki, stufen);
      sum += xD[c];
    }
    if (!(sum > 0) || !std::isfinite(sum)) return false;
    for (double& v : xD) v /= sum;
    // Trace components of many plates are better scaled in logarithms.
    if (NewtonLin(xw)) return true;
    logZuerst = NewtonLog(xw);
    return logZuerst;
  }

  // Newton's method on the logarithms of the distillate composition, v(i) = ln x_D(i) - ln x_D(n)
  // (so that trace components stay positive and are scaled like the others), with the residual
  // ln x_S(i) - ln x_W(i), i < n; the Jacobian by forward differences. Converged when the still
  // liquid matches x_W within BatchGenau in every mole fraction.
  bool NewtonLog(const std::vector<double>& xw) {
    const std::size_t m = static_cast<std::size_t>(n - 1), nn = static_cast<std::size_t>(n);
    std::vector<double>&xd = wxd, &xs = wxs, &xs2 = wxs2, &xp = wxp, &F = wF, &J = wJ, &d = wd;
    std::vector<double>& v = wv;
    const double tiny = 1e-300;
    auto ausV = [&](const std::vector<double>& vv, std::vector<double>& x) {
      double big = 0;
      for (std::size_t i = 0; i < m; ++i) big = std::max(big, vv[i]);
      double sum = 0;
      for (std::size_t i = 0; i < m; ++i) x[i] = std::exp(vv[i] - big), sum += x[i];
      x[m] = std::exp(-big);
      sum += x[m];
      for (std::size_t i = 0; i < nn; ++i) x[i] /= sum;
    };
    const double last = std::max(xD[m], 1e-30);
    for (std::size_t i = 0; i < m; ++i) v[i] = std::log(std::max(xD[i], 1e-30) / last);
    double tt = 0;
    for (int it = 0; it < maxIter; ++it) {
      ausV(v, xd);
      letzteNorm = -1;
      if (!Abwaerts(xd, xs, tt)) return false;
      double norm = 0;
      for (std::size_t i = 0; i < nn; ++i) norm = std::max(norm, std::fabs(xs[i] - xw[i]));
      letzteNorm = norm;
      if (norm < genau) {
        xD = xd;
        tKopf = tt;
        return true;
      }
      for (std::size_t i = 0; i < m; ++i)
        F[i] = std::log(std::max(xs[i], tiny)) - std::log(std::max(xw[i], tiny)) -
               (std::log(std::max(xs[m], tiny)) - std::log(std::max(xw[m], tiny)));
      const double h = 1e-6;
      for (std::size_t j = 0; j < m; ++j) {
        for (std::size_t i = 0; i < m; ++i) d[i] = v[i];
        d[j] += h;
        ausV(d, xp);
        double t2 = 0;
        if (!Abwaerts(xp, xs2, t2)) return false;
        for (std::size_t i = 0; i < m; ++i) {
          const double Fi = std::log(std::max(xs2[i], tiny)) - std::log(std::max(xw[i], tiny)) -
                            (std::log(std::max(xs2[m], tiny)) - std::log(std::max(xw[m], tiny)));
          J[i * m + j] = (Fi - F[i]) / h;
        }
      }
      // Gaussian elimination with partial pivoting on the small system J d = -F.
      for (std::size_t i = 0; i < m; ++i) d[i] = -F[i];
      for (std::size_t c = 0; c < m; ++c) {
        std::size_t pv = c;
        for (std::size_t r = c + 1; r < m; ++r)
          if (std::fabs(J[r * m + c]) > std::fabs(J[pv * m + c])) pv = r;
        if (!(std::fabs(J[pv * m + c]) > 1e-300)) return false;
        for (std::size_t k = 0; k < m; ++k) std::swap(J[c * m + k], J[pv * m + k]);
        std::swap(d[c], d[pv]);
        for (std::size_t r = c + 1; r < m; ++r) {
          const double f = J[r * m + c] / J[c * m + c];
          for (std::size_t k = c; k < m; ++k) J[r * m + k] -= f * J[c * m + k];
          d[r] -= f * d[c];
        }
      }
      for (std::size_t c = m; c-- > 0;) {
        for (std::size_t k = c + 1; k < m; ++k) d[c] -= J[c * m + k] * d[k];
        d[c] /= J[c * m + c];
      }
      // Damped step: at most 2 in any logarithm.
      double big = 0;
      for (std::size_t i = 0; i < m; ++i) big = std::max(big, std::fabs(d[i]));
      if (!std::isfinite(big)) return false;
      const double lam = big > 2 ? 2 / big : 1.0;
      for (std::size_t i = 0; i < m; ++i) v[i] += lam * d[i];
    }
    return false;
  }

  // Newton's method on the mole fractions themselves, x_D(n) by closure; the Jacobian by forward
  // differences.
  bool NewtonLin(const std::vector<double>& xw) {
    const std::size_t m = static_cast<std::size_t>(n - 1);
    std::vector<double>&xd = wxd, &xs = wxs, &xs2 = wxs2, &xp = wxp, &F = wF, &J = wJ, &d = wd;
    xd = xD;
    double tt = 0;
    auto closure = [&](std::vector<double>& v) {
      double sum = 0;
      for (std::size_t i = 0; i < m; ++i) v[i] = std::clamp(v[i], 0.0, 1.0), sum += v[i];
      if (sum > 1) {
        for (std::size_t i = 0; i < m; ++i) v[i] /= sum;
        sum = 1;
      }
      v[m] = 1 - sum;
    };
    closure(xd);
    for (int it = 0; it < maxIter; ++it) {
      letzteNorm = -1;
      if (!Abwaerts(xd, xs, tt)) return false;
      double norm = 0;
      for (std::size_t i = 0; i < m; ++i) F[i] = xs[i] - xw[i], norm = std::max(norm, std::fabs(F[i]));
      letzteNorm = norm;
      if (norm < genau) {
        xD = xd;
        tKopf = tt;
        return true;
      }
      const double h = 1e-7;
      for (std::size_t j = 0; j < m; ++j) {
        xp = xd;
        const double hj = xp[j] + h <= 1 ? h : -h;
        xp[j] += hj;
        xp[m] -= hj;
        double t2 = 0;
        if (!Abwaerts(xp, xs2, t2)) return false;
        for (std::size_t i = 0; i < m; ++i) J[i * m + j] = (xs2[i] - xs[i]) / hj;
      }
      // Gaussian elimination with partial pivoting on the small system J d = -F.
      for (std::size_t i = 0; i < m; ++i) d[i] = -F[i];
      for (std::size_t c = 0; c < m; ++c) {
        std::size_t pv = c;
        for (std::size_t r = c + 1; r < m; ++r)
          if (std::fabs(J[r * m + c]) > std::fabs(J[pv * m + c])) pv = r;
        if (std::fabs(J[pv * m + c]) < 1e-300) return false;
        for (std::size_t k = 0; k < m; ++k) std::swap(J[c * m + k], J[pv * m + k]);
        std::swap(d[c], d[pv]);
        for (std::size_t r = c + 1; r < m; ++r) {
          const double f = J[r * m + c] / J[c * m + c];
          for (std::size_t k = c; k < m; ++k) J[r * m + k] -= f * J[c * m + k];
          d[r] -= f * d[c];
        }
      }
      for (std::size_t c = m; c-- > 0;) {
        for (std::size_t k = c + 1; k < m; ++k) d[c] -= J[c * m + k] * d[k];
        d[c] /= J[c * m + c];
      }
      // Damped step: at most 0.2 in any mole fraction.
      double big = 0;
      for (double v : d) big = std::max(big, std::fabs(v));
      const double lam = big > 0.2 ? 0.2 / big : 1.0;
      for (std::size_t i = 0; i < m; ++i) xd[i] += lam * d[i];
      closure(xd);
    }
    return false;
  }

  // The bubble temperature of the still liquid at the bottom pressure, and its vapour.
  bool Sumpf(const std::vector<double>& xw) {
    peq::Vec<double> xv(static_cast<std::size_t>(n + 1)), ys(static_cast<std::size_t>(n + 1));
    for (int i = 1; i <= n; ++i) xv[i] = xw[static_cast<std::size_t>(i - 1)];
    int16_t warn = 0;
    double vL = 0, vV = 0, T = tSumpf;
    const double p = s.PIso + s.NBoden * static_cast<double>(s.DruckVerlust);
    const double t = peq::SafeBubbleT(s, p, xv, T, ys, warn, K, vL, vV);
    if (!(t > 0) || !std::isfinite(t)) return false;
    tSumpf = t;
    for (int i = 1; i <= n; ++i) yw[i] = s.YGas[i];
    return true;
  }
};

struct Stand {
  double theta = 0, W = 0, tKopf = 0, tSumpf = 0;
  std::vector<double> nAmt, xD, xW, yW;
};

std::string Z(double v) { return peq::Muster(v); }

std::string Feld(const std::string& t, std::size_t w) { return t.size() >= w ? t : std::string(w - t.size(), ' ') + t; }

int Lauf() {
  std::ifstream in(peq::kToBatch, std::ios::binary);
  if (!in) {
    std::cerr << "PEQBATCH: " << peq::kToBatch << " not found\n";
    return 2;
  }
  std::stringstream buf;
  buf << in.rdbuf();
  peqbatch::Aufgabe a;
  try {
    peqbatch::ReadToBatch(buf.str(), a);
  } catch (const peq::ExchangeError& e) {
    std::cerr << "PEQBATCH: " << peq::kToBatch << ": " << e.text << "\n";
    return 3;
  }
  peq::Session& s = a.S;
  const int n = s.NKomp;
  const std::size_t nn = static_cast<std::size_t>(n);
  Kolonne k{s, n, s.BatchGenau, static_cast<int>(s.BatchMaxIter), a.Start.TKopfStart + 273.15,
            a.Start.TSumpfStart + 273.15, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, -1, false};
  k.y.assign(nn + 1);
  k.x.assign(nn + 1);
  k.yw.assign(nn + 1);
  k.K.assign(nn + 1);
  for (auto* v : {&k.wxd, &k.wxs, &k.wxs2, &k.wxp, &k.wF, &k.wd, &k.wv}) v->assign(nn, 0.0);
  k.wJ.assign(nn * nn, 0.0);
  double F = 0;
  Zustand z0(nn);
  for (int i = 1; i <= n; ++i) z0[static_cast<std::size_t>(i - 1)] = s.StoffMenge[i], F += s.StoffMenge[i];
  const double ab = F - a.Start.RestMenge;
  bool fehler = false;
  auto comp = [&](const Zustand& z) {
    double W = 0;
    for (double v : z) W += v;
    std::vector<double> xw(nn);
    for (std::size_t i = 0; i < nn; ++i) xw[i] = std::max(0.0, z[i]) / W;
    return xw;
  };
  // Start: the distillate guessed as the vapour over the filling.
  {
    const std::vector<double> xw = comp(z0);
    if (!k.Sumpf(xw)) {
      std::cerr << "PEQBATCH: no boiling point of the filling\n";
      return 4;
    }
    k.xD.assign(nn, 0);
    for (int i = 1; i <= n; ++i) k.xD[static_cast<std::size_t>(i - 1)] = k.yw[i];
  }
  auto system = [&](const Zustand& z, Zustand& dz, double) {
    const std::vector<double> xw = comp(z);
    if (fehler || !k.Loesen(xw)) {
      fehler = true;
      std::fill(dz.begin(), dz.end(), 0.0);
      return;
    }
    for (std::size_t i = 0; i < nn; ++i) dz[i] = -k.xD[i];
  };
  // Observation points: the records and the fraction limits, in the amount distilled.
  const int ns = s.NSchritte, nf = s.NFrak;
  std::vector<double> punkte;
  for (int j = 0; j < ns; ++j) punkte.push_back(ab * j / (ns - 1));
  for (int f = 1; f < nf; ++f) punkte.push_back(ab * f / nf);
  std::sort(punkte.begin(), punkte.end());
  std::vector<Stand> staende;
  Zustand z = z0;
  using namespace boost::numeric::odeint;
  auto stepper = make_dense_output(1e-8, 1e-8, runge_kutta_dopri5<Zustand>());
  std::size_t schritt = 0;
  auto beobachte = [&](const Zustand& zz, double th) {
    if (fehler) return;
    Stand st;
    st.theta = th;
    st.nAmt = zz;
    st.W = 0;
    for (double v : zz) st.W += v;
    st.xW = comp(zz);
    if (!k.Loesen(st.xW) || !k.Sumpf(st.xW)) {
      fehler = true;
      return;
    }
    st.xD = k.xD;
    st.tKopf = k.tKopf;
    st.tSumpf = k.tSumpf;
    st.yW.assign(nn, 0);
    for (int i = 1; i <= n; ++i) st.yW[static_cast<std::size_t>(i - 1)] = k.yw[i];
    staende.push_back(st);
    ++schritt;
    std::cout << static_cast<int>(100.0 * static_cast<double>(schritt) / static_cast<double>(punkte.size())) << "\n"
              << std::flush;
  };
  integrate_times(stepper, system, z, punkte.begin(), punkte.end(), ab / ns / 10, beobachte);
  if (fehler || staende.size() != punkte.size()) {
    std::cerr << "PEQBATCH: the column could not be solved after " << staende.size() << " of " << punkte.size()
              << " steps (" << (k.letzteNorm < 0 ? std::string("no dew point")
                                                  : "residual " + std::to_string(k.letzteNorm))
              << ")\n";
    return 5;
  }
  // Answer text.
  std::string out;
  peq::AppendLine(out, "PEQBATCH batch rectification");
  peq::AppendLine(out, "$T");
  peq::AppendLine(out, std::to_string(n) + " " + std::to_string(ns));
  int rec = 0;
  auto abRate = ab / s.BatchZeit;
  for (const Stand& st : staende) {
    bool record = false;
    for (int j = 0; j < ns; ++j)
      if (st.theta == ab * j / (ns - 1)) record = true;
    if (!record || rec >= ns) continue;
    ++rec;
    std::string l = std::to_string(rec) + " " + Z(s.BatchZeit * st.theta / ab);
    for (double v : st.xD) l += " " + Z(v);
    for (double v : st.yW) l += " " + Z(v);
    for (double v : st.xW) l += " " + Z(v);
    l += " " + Z(st.tKopf - 273.15) + " " + Z(st.tSumpf - 273.15) + " " + Z(st.W) + " " + Z(st.theta) + " " +
         Z(abRate);
    peq::AppendLine(out, l);
  }
  if (rec != ns) {
    std::cerr << "PEQBATCH: records lost\n";
    return 5;
  }
  peq::AppendLine(out, "");
  peq::AppendLine(out, peq::kFraktionenZeile);
  char b[64];
  for (int f = 1; f <= nf; ++f) {
    const double t0 = ab * (f - 1) / nf, t1 = ab * f / nf;
    const Stand* s0 = nullptr;
    const Stand* s1 = nullptr;
    for (const Stand& st : staende) {
      if (st.theta == t0) s0 = &st;
      if (st.theta == t1) s1 = &st;
    }
    if (!s0 || !s1) {
      std::cerr << "PEQBATCH: fraction limits lost\n";
      return 5;
    }
    double menge = 0;
    for (std::size_t i = 0; i < nn; ++i) menge += s0->nAmt[i] - s1->nAmt[i];
    std::snprintf(b, sizeof b, "%2d", f);
    std::string l = std::string(" fraction ") + b;
    l += std::string(28 - l.size(), ' ');
    std::snprintf(b, sizeof b, "%15.8E", menge);
    peq::AppendLine(out, l + Feld(b, 15) + " kmol");
    for (std::size_t i = 0; i < nn; ++i) {
      std::snprintf(b, sizeof b, "%11.8f", (s0->nAmt[i] - s1->nAmt[i]) / menge);
      std::snprintf(b + 20, 20, "%2d", static_cast<int>(i + 1));
      peq::AppendLine(out, std::string("   x(") + (b + 20) + ") mean  " + Feld(b, 11));
    }
    peq::AppendLine(out, "");
    peq::AppendLine(out, "                                temp. top (C)     temp. bottom (C)");
    auto tz = [&](const char* name, const Stand* st) {
      std::string t = std::string("   ") + name;
      t += std::string(32 - t.size(), ' ');
      std::snprintf(b, sizeof b, "%14.6f", st->tKopf - 273.15);
      t += Feld(b, 14) + "    ";
      std::snprintf(b, sizeof b, "%14.6f", st->tSumpf - 273.15);
      t += Feld(b, 14) + "  ";
      peq::AppendLine(out, t);
    };
    tz("begin", s0);
    peq::AppendLine(out, "");
    peq::AppendLine(out, "");
    tz("end", s1);
    std::string mengen = "   amounts (kmol)";
    for (std::size_t i = 0; i < nn; ++i) {
      std::snprintf(b, sizeof b, " %.17g", s0->nAmt[i] - s1->nAmt[i]);
      mengen += b;
    }
    peq::AppendLine(out, mengen);
    peq::AppendLine(out, "");
  }
  std::string rest = " residue in the stillpot (kmol)";
  for (std::size_t i = 0; i < nn; ++i) {
    std::snprintf(b, sizeof b, " %.17g", staende.back().nAmt[i]);
    rest += b;
  }
  peq::AppendLine(out, rest);
  const std::string tmp = std::string(peq::kFromBatch) + ".tmp";
  {
    std::ofstream o(tmp, std::ios::binary | std::ios::trunc);
    o << out;
    if (!o.good()) {
      std::cerr << "PEQBATCH: cannot write " << tmp << "\n";
      return 6;
    }
  }
  std::error_code ec;
  std::filesystem::rename(tmp, peq::kFromBatch, ec);
  if (ec) {
    std::filesystem::remove(tmp, ec);
    std::cerr << "PEQBATCH: cannot write " << peq::kFromBatch << "\n";
    return 6;
  }
  return 0;
}

}  // namespace

int main() {
  try {
    return Lauf();
  } catch (const std::exception& e) {
    std::cerr << "PEQBATCH: " << e.what() << "\n";
    return 7;
  }
}
