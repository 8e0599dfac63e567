#include "diagrams/exppunkte.h"

#include <array>
#include <cmath>
#include <string>

#include "models/vappressure.h"

namespace peq {

namespace {

constexpr std::array<Symbol, 6> kSymbole = {Symbol::Kreis, Symbol::Quadrat, Symbol::Dreieck,
                                            Symbol::Raute, Symbol::Kreuz, Symbol::Stern};
constexpr std::array<uint32_t, 12> kFarben = {0xC00000, 0x0000C0, 0x008000, 0x800080, 0xC06000, 0x008080,
                                              0x404040, 0xC000C0, 0x606000, 0x0060C0, 0x804000, 0x000000};

}  // namespace

SerienStil ExpStil(int k, bool dampf) {
  SerienStil st;
  st.Muster = LinienMuster::Keine;
  st.Breite = 0;
  st.Sym = kSymbole[static_cast<std::size_t>(k % 6)];
  st.Farbe = kFarben[static_cast<std::size_t>(k % 12)];
  st.SymGroesse = dampf ? 6.0f : 8.0f;
  return st;
}

int ExpSatzBilden(const Session& s, const Graph2DDoc& d, ExpSatz& satz) {
  satz = ExpSatz{};
  const int nd = d.NoDia;
  const bool isotherm = nd == 1 || nd == 3 || nd == 5 || nd == 10 || nd == 8 || nd == 81;
  const bool isobar = nd == 4 || nd == 6 || nd == 51 || nd == 11 || nd == 82 || nd == 83;
  if (!isotherm && !isobar) return 0;
  const bool k2IstZwei = s.Komp2 != 1;
  // Molar masses of the components on the axis (k2) and the other one (k1), for mass fractions.
  double m1 = 1, m2 = 1;
  if (s.ConcUnit != 0 && s.MolMasse.size() > 2) {
    m1 = s.MolMasse[static_cast<std::size_t>(k2IstZwei ? 1 : 2)];
    m2 = s.MolMasse[static_cast<std::size_t>(k2IstZwei ? 2 : 1)];
    if (!(m1 > 0) || !(m2 > 0)) m1 = m2 = 1;
  }
  auto achse = [&](double x2) {
    const double x = k2IstZwei ? x2 : 1.0 - x2;
    if (s.ConcUnit == 0) return x;
    return x * m2 / (x * m2 + (1.0 - x) * m1);
  };
  auto setze = [](Serie& ser, double x, double y) {
    if (!std::isfinite(x) || !std::isfinite(y) || std::fabs(x) > 1e37 || std::fabs(y) > 1e37) return;
    ser.x.push_back(static_cast<float>(x));
    ser.y.push_back(static_cast<float>(y));
  };
  const int n = std::min<int>(s.ExpAnz, static_cast<int>(s.ExpPunkte.size()) - 1);
  int genommen = 0;
  for (int i = 1; i <= n; ++i) {
    const ExpPunkt& r = s.ExpPunkte[static_cast<std::size_t>(i)];
    if (r.Inaktiv != 0 || r.p < 1e-6f) continue;
    if (isotherm ? !InnerhalbPromille(r.T, d.T) : !InnerhalbPromille(r.p, d.p)) continue;
    const bool mitV = r.x2V != 0;
    const double xL = k2IstZwei ? r.x2L : 1.0 - r.x2L;
    const double xV = k2IstZwei ? r.x2V : 1.0 - r.x2V;
    switch (nd) {
      case 1:
        setze(satz.L, achse(r.x2L), r.p);
        if (mitV) setze(satz.V, achse(r.x2V), r.p);
        break;
      case 4:
        setze(satz.L, achse(r.x2L), r.T - s.TOffsetOut);
        if (mitV) setze(satz.V, achse(r.x2V), r.T - s.TOffsetOut);
        break;
      case 3:
      case 6:
        if (mitV) setze(satz.L, achse(r.x2L), achse(r.x2V));
        break;
      case 5:
      case 51:
        if (mitV && xL > 0) setze(satz.L, achse(r.x2L), xV / xL);
        break;
      case 8:
      case 81:
      case 82:
      case 83: {
        // The activity coefficients the row holds, by Raoult's law with the ideal gas:
        // f(i) = y(i) p / (x(i) p0(i, T)); the axis component into the first series, the other
        // into the second; the logarithms for 81 and 83. A row without x(V), or with a p0 the
        // equations cannot give, has none.
        if (!mitV) break;
        const int k2 = k2IstZwei ? 2 : 1, k1 = 3 - k2;
        if (s.P0Eq.size() <= 2) break;
        std::string c1 = s.P0Eq[static_cast<std::size_t>(k1)], c2 = s.P0Eq[static_cast<std::size_t>(k2)];
        int16_t dT = 0;
        const double p01 = VapPressure(s, k1, r.T, c1, false, dT);
        const double p02 = VapPressure(s, k2, r.T, c2, false, dT);
        const bool ln = nd == 81 || nd == 83;
        auto f = [&](double y, double x, double p0) {
          if (!(x > 0) || !(y > 0) || !(p0 > 0)) return std::nan("");
          const double g = y * r.p / (x * p0);
          return ln ? std::log(g) : g;
        };
        setze(satz.L, achse(r.x2L), f(xV, xL, p02));
        setze(satz.V, achse(r.x2L), f(1.0 - xV, 1.0 - xL, p01));
        break;
      }
      default:  // 10, 11: alpha(1,2) = (y1/x1) / (y2/x2)
        if (mitV && r.x2L > 0 && r.x2L < 1 && r.x2V > 0 && r.x2V < 1)
          setze(satz.L, achse(r.x2L), ((1.0 - r.x2V) / (1.0 - r.x2L)) / (static_cast<double>(r.x2V) / r.x2L));
        break;
    }
    ++genommen;
  }
  if (satz.L.Punkte() == 0 && satz.V.Punkte() == 0) return 0;
  return genommen;
}

int zeigeExpPunkte(const Session& s, Graph2DDoc& d, bool& voll) {
  voll = static_cast<int>(d.ExpSaetze.size()) >= kMaxExpSaetze;
  if (voll) return 0;
  ExpSatz satz;
  const int n = ExpSatzBilden(s, d, satz);
  if (n == 0) return 0;
  const int k = static_cast<int>(d.ExpSaetze.size());
  satz.L.Stil = ExpStil(k, false);
  satz.V.Stil = ExpStil(k, true);
  std::string quelle = s.ExpDatei;
  const std::size_t sep = quelle.find_last_of("\\/");
  if (sep != std::string::npos) quelle = quelle.substr(sep + 1);
  satz.Legende = "exp. " + (quelle.empty() ? std::string("data") : quelle);
  satz.L.Legende = satz.Legende + " x(L)";
  satz.V.Legende = satz.Legende + " x(V)";
  NeuerExpSatz(d, std::move(satz));
  return n;
}

}  // namespace peq
