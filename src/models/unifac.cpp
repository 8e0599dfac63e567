#include "models/unifac.h"

#include <bit>
#include <cstring>

#include "session/numeric.h"
#include "substances/unifacfiles.h"

namespace peq {

namespace {

// Half the coordination number, z/2 with z = 10.
constexpr double kZHalf = 5.0;
// Different subgroups a Mod. UNIFAC mixture may hold.
constexpr int kModMaxGroups = 35;
// What a zero mole fraction becomes in UNIFAC.
constexpr double kXZero = 1E-10;

// A failure of the model itself (as opposed to an arithmetic fault).
struct ModelFailure {};

bool SameBits(double a, double b) {
  return std::bit_cast<uint64_t>(a) == std::bit_cast<uint64_t>(b);
}

void SizeComponents(GroupMixture& g, int n) {
  const std::size_t m = static_cast<std::size_t>(n) + 1;
  if (g.Inkr.size() != m) g.Inkr.assign(m, InkrWerte{});
}

// Adds subgroup sub of component i with count to the structure: a new subgroup goes to the end
// of GroupList; addCounts decides whether a repeated subgroup adds to or replaces its count.
void PutGroup(GroupMixture& g, int i, int count, int sub, bool addCounts) {
  for (int k = 0; k < g.NGroups; ++k) {
    if (g.GroupList[static_cast<std::size_t>(k)] == sub) {
      if (addCounts)
        g.Nu(static_cast<std::size_t>(i), static_cast<std::size_t>(k)) += count;
      else
        g.Nu(static_cast<std::size_t>(i), static_cast<std::size_t>(k)) = count;
      return;
    }
  }
  if (g.NGroups >= static_cast<int>(g.Nu.cols())) throw ModelFailure{};
  g.GroupList.push_back(static_cast<int16_t>(sub));
  g.Nu(static_cast<std::size_t>(i), static_cast<std::size_t>(g.NGroups)) = count;
  ++g.NGroups;
}

// Starts a new structure for n components with room for maxGroups subgroups.
void ClearStructure(GroupMixture& g, int n, int maxGroups) {
  g.Built = false;
  g.TValid = false;
  ++g.Generation;
  g.NKompBuilt = n;
  g.NGroups = 0;
  g.GroupList.clear();
  g.Main.clear();
  g.R.clear();
  g.Q.clear();
  g.Nu.assign(static_cast<std::size_t>(n) + 1, static_cast<std::size_t>(maxGroups), 0.0);
  const std::size_t m = static_cast<std::size_t>(n) + 1;
  g.r.assign(m, 0.0);
  g.q.assign(m, 0.0);
  g.r34.assign(m, 0.0);
  g.l.assign(m, 0.0);
  g.Phi.assign(m, 0.0);
  g.ThetaK.assign(m, 0.0);
  g.LnG.assign(m, 0.0);
  g.Missing = false;
}

// Per-group arrays and per-component r and q once GroupList is complete.
void FinishStructure(GroupMixture& g, int n, const Vec<float>& R, const Vec<float>& Q,
                     const Vec<int16_t>& main) {
  const std::size_t G = static_cast<std::size_t>(g.NGroups);
  for (std::size_t k = 0; k < G; ++k) {
    const std::size_t sub = static_cast<std::size_t>(g.GroupList[k]);
    g.Main.push_back(main[sub]);
    g.R.push_back(static_cast<double>(R[sub]));
    g.Q.push_back(static_cast<double>(Q[sub]));
  }
  for (int i = 1; i <= n; ++i) {
    double r = 0.0, q = 0.0;
    for (std::size_t k = 0; k < G; ++k) {
      r += g.Nu(static_cast<std::size_t>(i), k) * g.R[k];
      q += g.Nu(static_cast<std::size_t>(i), k) * g.Q[k];
    }
    g.r[i] = r;
    g.q[i] = q;
  }
  g.Psi.assign(G, G, 0.0);
  g.S.assign(static_cast<std::size_t>(n) + 1, G, 0.0);
  g.LnGamPure.assign(static_cast<std::size_t>(n) + 1, G, 0.0);
  g.Th.assign(G, 0.0);
  g.Eta.assign(G, 0.0);
  g.X.assign(G, 0.0);
  g.Theta.assign(G, 0.0);
  g.Den.assign(G, 0.0);
  g.LnGam.assign(G, 0.0);
}

// ---------------------------------------------------------------- Modified UNIFAC (Dortmund)

void RebuildMod(Session& s, GroupMixture& g, int n) {
  const UnifacTables& t = s.Unifac;
  ClearStructure(g, n, kModMaxGroups);
  g.TabStand = t.ModStand;
  for (int i = 1; i <= n; ++i) {
    for (int slot = 0; slot < kInkrSlots; ++slot) {
      const int32_t v = g.Inkr[i][static_cast<std::size_t>(slot)];
      if (v == 0) continue;
      const int count = v / 1000, sub = v % 1000;
      if (sub == 199) throw ModelFailure{};
      if (sub < 0 || sub > kModSubMax) throw ModelFailure{};
      PutGroup(g, i, count, sub, false);
    }
  }
  FinishStructure(g, n, t.ModR, t.ModQ, t.ModMain);
  const std::size_t G = static_cast<std::size_t>(g.NGroups);
  for (std::size_t m = 0; m < G; ++m)
    if (g.Main[m] < 0 || g.Main[m] > kModMainMax) throw ModelFailure{};
  for (std::size_t m = 0; m < G; ++m)
    for (std::size_t k = 0; k < G; ++k)
      if (t.ModA(static_cast<std::size_t>(g.Main[m]), static_cast<std::size_t>(g.Main[k])) >
          kModMissingAbove)
        throw ModelFailure{};
  for (int i = 1; i <= n; ++i) g.r34[i] = chk::Pow(g.r[i], 0.75);
  g.Built = true;
}

// psi(m,k) = exp(-a/T - b - c T) of the main groups, and s(i,k) = sum over m of
// Nu(i,m) Q(m) psi(m,k): everything of the residual part that depends on T only.
void ModTTerms(const Session& s, GroupMixture& g, int n, double T) {
  const UnifacTables& t = s.Unifac;
  const std::size_t G = static_cast<std::size_t>(g.NGroups);
  g.TValid = false;
  for (std::size_t m = 0; m < G; ++m) {
    const std::size_t mm = static_cast<std::size_t>(g.Main[m]);
    for (std::size_t k = 0; k < G; ++k) {
      const std::size_t mk = static_cast<std::size_t>(g.Main[k]);
      const double a = t.ModA(mm, mk), b = t.ModB(mm, mk), c = t.ModC(mm, mk);
      g.Psi(m, k) = chk::Exp(-chk::Div(a, T) - b - c * T);
    }
  }
  for (int i = 1; i <= n; ++i) {
    const std::size_t ii = static_cast<std::size_t>(i);
    for (std::size_t k = 0; k < G; ++k) {
      double sum = 0.0;
      for (std::size_t m = 0; m < G; ++m) sum += g.Nu(ii, m) * g.Q[m] * g.Psi(m, k);
      g.S(ii, k) = sum;
    }
  }
  g.TKey = T;
  g.TGeneration = g.Generation;
  g.TValid = true;
}

void ModGamma(Session& s, double T, const Vec<double>& x, Vec<double>& gamma, int16_t& err) {
  const int n = s.NKomp;
  GroupMixture& g = s.GEWork.Mod;
  UnifacTables& t = s.Unifac;
  SizeComponents(g, n);
  for (int i = 1; i <= n; ++i) ParseInkr(s.StoffData[i].ModUnifInkr, g.Inkr[i]);

  if (!t.ModGeladen || s.UnifacNeu) {
    t.ModGeladen = true;
    int16_t e = 0;
    LoadModUnif(s, e);
    if (e != 0) {
      g.Built = false;
      throw ModelFailure{};
    }
  }
  if (t.ModA.size() == 0) ResetModTables(t);
  // Rebuilt when UnifacNeu asks for it, and also when no structure of this mixture exists yet
  // (a failed rebuild, or another number of components).
  if (s.UnifacNeu || !g.Built || g.NKompBuilt != n) {
    g.Built = false;
    RebuildMod(s, g, n);
  }

  if (!(g.TValid && g.TGeneration == g.Generation && SameBits(g.TKey, T))) ModTTerms(s, g, n, T);

  const std::size_t G = static_cast<std::size_t>(g.NGroups);
  double Sr = 0.0, S34 = 0.0, Sq = 0.0;
  for (int i = 1; i <= n; ++i) {
    Sr += g.r[i] * x[i];
    S34 += g.r34[i] * x[i];
    Sq += g.q[i] * x[i];
  }
  for (std::size_t k = 0; k < G; ++k) {
    double th = 0.0, eta = 0.0;
    for (int i = 1; i <= n; ++i) {
      const std::size_t ii = static_cast<std::size_t>(i);
      th += g.Nu(ii, k) * x[i];
      eta += g.S(ii, k) * x[i];
    }
    g.Th[k] = th;
    g.Eta[k] = eta;
  }
  for (int i = 1; i <= n; ++i) {
    const std::size_t ii = static_cast<std::size_t>(i);
    const double Vp = chk::Div(g.r34[i], S34);
    const double F = chk::Div(g.q[i], Sq);
    const double ratio = chk::Div(g.r[i] * Sq, g.q[i] * Sr);
    double sumR = 0.0;
    for (std::size_t k = 0; k < G; ++k) {
      const double sik = g.S(ii, k);
      double term = chk::Div(g.Th[k] * sik, g.Eta[k]);
      // A group absent from component i adds nothing to the logarithmic term.
      if (g.Nu(ii, k) != 0.0) term -= g.Nu(ii, k) * chk::Ln(chk::Div(sik, g.Eta[k]));
      sumR += g.Q[k] * term;
    }
    g.LnG[i] = (1.0 - Vp + chk::Ln(Vp)) +
               g.q[i] * (1.0 - chk::Ln(F) - kZHalf * (1.0 - ratio + chk::Ln(ratio))) - sumR;
  }
  for (int i = 1; i <= n; ++i) g.LnG[i] = chk::Exp(g.LnG[i]);
  for (int i = 1; i <= n; ++i) gamma[i] = g.LnG[i];
  err = 0;
}

// ---------------------------------------------------------------- UNIFAC

bool Exempt(int a, int b) {
  return (a == 7 && b == 31) || (a == 31 && b == 7) || (a == 22 && b == 23) ||
         (a == 23 && b == 22);
}

void RebuildOUnif(Session& s, GroupMixture& g, int n) {
  const UnifacTables& t = s.Unifac;
  ClearStructure(g, n, kInkrSlots * (n > 0 ? n : 1));
  g.TabStand = t.OUnifStand;
  if (g.InkrBuilt.size() != g.Inkr.size()) g.InkrBuilt.assign(g.Inkr.size(), InkrWerte{});
  for (int i = 1; i <= n; ++i) g.InkrBuilt[i] = g.Inkr[i];
  for (int i = 1; i <= n; ++i) {
    for (int slot = 0; slot < kInkrSlots; ++slot) {
      const int32_t v = g.Inkr[i][static_cast<std::size_t>(slot)];
      if (v == 0) continue;
      const int count = v / 1000, sub = v % 1000;
      if (sub < 0 || sub > kOUnifSubMax) throw ModelFailure{};
      PutGroup(g, i, count, sub, true);
    }
  }
  FinishStructure(g, n, t.OUnifR, t.OUnifQ, t.OUnifMain);
  const std::size_t G = static_cast<std::size_t>(g.NGroups);
  for (std::size_t m = 0; m < G; ++m)
    if (g.Main[m] < 0 || g.Main[m] > kOUnifMainMax) throw ModelFailure{};
  for (std::size_t m = 0; m < G; ++m)
    for (std::size_t k = 0; k < G; ++k) {
      const int a = g.Main[m], b = g.Main[k];
      if (a != b && t.OUnifA(static_cast<std::size_t>(a), static_cast<std::size_t>(b)) == 0.0f &&
          !Exempt(a, b))
        g.Missing = true;
    }
  for (int i = 1; i <= n; ++i) g.l[i] = kZHalf * (g.r[i] - g.q[i]) - (g.r[i] - 1.0);
  g.Built = true;
}

// Group activity ln Gamma(k) for the group mole numbers nu(k) (not normalised):
// X(m) = nu(m)/sum nu; Theta(m) = Q(m) X(m)/sum Q X;
// ln Gamma(k) = Q(k) [1 - ln(den(k)) - sum_m Theta(m)/den(m) psi(k,m)],
// den(m) = sum_n Theta(n) psi(n,m). Results for the groups with use(k) true.
template <class NuOf, class UseOf, class Out>
void GroupActivity(GroupMixture& g, NuOf nu, UseOf use, Out out) {
  const std::size_t G = static_cast<std::size_t>(g.NGroups);
  double tot = 0.0;
  for (std::size_t m = 0; m < G; ++m) {
    g.X[m] = nu(m);
    tot += g.X[m];
  }
  double sumQX = 0.0;
  for (std::size_t m = 0; m < G; ++m) {
    g.X[m] = chk::Div(g.X[m], tot);
    sumQX += g.Q[m] * g.X[m];
  }
  for (std::size_t m = 0; m < G; ++m) g.Theta[m] = chk::Div(g.Q[m] * g.X[m], sumQX);
  // Den(m) first, then Theta(m)/Den(m) kept in X (the fractions are no longer needed).
  for (std::size_t m = 0; m < G; ++m) {
    double d = 0.0;
    for (std::size_t k = 0; k < G; ++k) d += g.Theta[k] * g.Psi(k, m);
    g.Den[m] = d;
  }
  for (std::size_t m = 0; m < G; ++m)
    g.X[m] = g.Theta[m] != 0.0 ? chk::Div(g.Theta[m], g.Den[m]) : 0.0;
  for (std::size_t k = 0; k < G; ++k) {
    if (!use(k)) continue;
    double sum = 0.0;
    for (std::size_t m = 0; m < G; ++m) sum += g.X[m] * g.Psi(k, m);
    out(k, g.Q[k] * (1.0 - chk::Ln(g.Den[k]) - sum));
  }
}

// psi(m,n) = exp(-a/T) and the group activities of each pure component.
void OUnifTTerms(const Session& s, GroupMixture& g, int n, float T) {
  const UnifacTables& t = s.Unifac;
  const std::size_t G = static_cast<std::size_t>(g.NGroups);
  const double TT = static_cast<double>(T);
  g.TValid = false;
  for (std::size_t m = 0; m < G; ++m)
    for (std::size_t k = 0; k < G; ++k) {
      const double a = t.OUnifA(static_cast<std::size_t>(g.Main[m]),
                                static_cast<std::size_t>(g.Main[k]));
      g.Psi(m, k) = chk::Exp(-chk::Div(a, TT));
    }
  for (int i = 1; i <= n; ++i) {
    const std::size_t ii = static_cast<std::size_t>(i);
    GroupActivity(
        g, [&](std::size_t m) { return g.Nu(ii, m); },
        [&](std::size_t k) { return g.Nu(ii, k) != 0.0; },
        [&](std::size_t k, double v) { g.LnGamPure(ii, k) = v; });
  }
  g.TKey = TT;
  g.TGeneration = g.Generation;
  g.TValid = true;
}

void OUnifGamma(Session& s, const Vec<std::string>& incr, float T, Vec<double>& x,
                Vec<double>& gamma, int16_t& err) {
  const int n = s.NKomp;
  GroupMixture& g = s.GEWork.OUnif;
  UnifacTables& t = s.Unifac;
  SizeComponents(g, n);
  for (int i = 1; i <= n; ++i) ParseInkr(incr[i], g.Inkr[i]);

  if (s.UnifacNeu) {
    int16_t e = 0;
    LoadOUnif(s, e);
    if (e != 0) {
      g.Built = false;
      throw ModelFailure{};
    }
  }
  if (t.OUnifA.size() == 0) ResetOUnifTables(t);

  for (int i = 1; i <= n; ++i)
    if (x[i] == 0.0) x[i] = kXZero;

  bool same = g.Built && g.NKompBuilt == n && g.TabStand == t.OUnifStand &&
              g.InkrBuilt.size() == g.Inkr.size();
  for (int i = 1; same && i <= n; ++i) same = (g.InkrBuilt[i] == g.Inkr[i]);
  if (!same) {
    g.Built = false;
    RebuildOUnif(s, g, n);
  }

  // Combinatorial part.
  double sumRx = 0.0, sumQx = 0.0, sumL = 0.0;
  for (int i = 1; i <= n; ++i) {
    sumRx += g.r[i] * x[i];
    sumQx += g.q[i] * x[i];
    sumL += x[i] * g.l[i];
  }
  for (int i = 1; i <= n; ++i) {
    const double phi = chk::Div(g.r[i] * x[i], sumRx);
    const double theta = chk::Div(g.q[i] * x[i], sumQx);
    const double phiX = chk::Div(phi, x[i]);
    g.LnG[i] = chk::Ln(phiX) + kZHalf * g.q[i] * chk::Ln(chk::Div(theta, phi)) + g.l[i] -
               phiX * sumL;
  }

  if (g.Missing) throw ModelFailure{};

  // Residual part.
  const double TT = static_cast<double>(T);
  if (!(g.TValid && g.TGeneration == g.Generation && SameBits(g.TKey, TT)))
    OUnifTTerms(s, g, n, T);
  GroupActivity(
      g,
      [&](std::size_t m) {
        double v = 0.0;
        for (int i = 1; i <= n; ++i) v += g.Nu(static_cast<std::size_t>(i), m) * x[i];
        return v;
      },
      [](std::size_t) { return true; }, [&](std::size_t k, double v) { g.LnGam[k] = v; });
  const std::size_t G = static_cast<std::size_t>(g.NGroups);
  for (int i = 1; i <= n; ++i) {
    const std::size_t ii = static_cast<std::size_t>(i);
    double res = 0.0;
    for (std::size_t k = 0; k < G; ++k)
      if (g.Nu(ii, k) != 0.0) res += g.Nu(ii, k) * (g.LnGam[k] - g.LnGamPure(ii, k));
    g.LnG[i] = chk::Exp(g.LnG[i] + res);
  }
  for (int i = 1; i <= n; ++i) gamma[i] = g.LnG[i];
  err = 0;
}

}  // namespace

void ModUnifacGamma(Session& s, double T, const Vec<double>& x, Vec<double>& gamma, int16_t& err) {
  err = 0;
  if (s.NKomp < 1) return;
  try {
    ModGamma(s, T, x, gamma, err);
  } catch (const ModelFailure&) {
    err = -1;
  } catch (const NumericFault&) {
    s.GEWork.Mod.TValid = false;
    err = -1;
  }
}

void OUnifacGamma(Session& s, const Vec<std::string>& incr, float T, Vec<double>& x,
                  Vec<double>& gamma, int16_t& err) {
  err = 0;
  if (s.NKomp < 1) return;
  try {
    OUnifGamma(s, incr, T, x, gamma, err);
  } catch (const ModelFailure&) {
    err = -1;
  } catch (const NumericFault&) {
    s.GEWork.OUnif.TValid = false;
    err = -1;
  }
}

}  // namespace peq
