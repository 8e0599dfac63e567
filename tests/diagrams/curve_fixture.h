// Test helpers of the curve tracer: one call of CalcCurve with its outputs gathered, and the
// mixtures the tests draw.
#pragma once

#include <string>

#include "diagrams/curve.h"
#include "engine/kernel_test_sessions.h"
#include "models/eos_test_session.h"
#include "session/session.h"

namespace curvetest {

struct Drawn {
  peq::Kurve k1, k2;
  int16_t ausserhalb = 0, fehler = 0;
  float gx1 = 0, gw1 = 0, gx2 = 0, gw2 = 0, gy = 0;
  std::string kommentar;
  peq::MsgSink msgs;
  std::size_t n1() const { return k1.size() - 1; }
  std::size_t n2() const { return k2.size() - 1; }
};

// One curve of diagram noDia of the pair (1, 2) with the session's coordinates.
inline Drawn Draw(peq::Session& s, int noDia, double T, double p, float x2 = 0.5f, int16_t real = 0) {
  Drawn d;
  int16_t nd = static_cast<int16_t>(noDia), k1 = 1, k2 = 2;
  peq::Vec<double> x(static_cast<std::size_t>(s.NKomp) + 1, 0.0);
  s.NoDia = nd;
  s.TIso = T;
  s.PIso = p;
  const float TOben = static_cast<float>(s.YMax + s.TOffsetOut);
  peq::CalcCurve(s, nd, T, p, x2, d.k1, d.k2, x, s.P0, k1, k2, d.ausserhalb, real, TOben, d.gx1, d.gw1, d.gx2,
                 d.gw2, d.gy, d.kommentar, d.fehler, &d.msgs);
  return d;
}

// Coordinates of the session in one call.
inline void Coords(peq::Session& s, float xmin, float xmax, float ymin, float ymax) {
  s.XMin = xmin;
  s.XMax = xmax;
  s.YMin = ymin;
  s.YMax = ymax;
}

// True when the session posted a message with this title and text.
inline bool Posted(const peq::MsgSink& m, const std::string& title, const std::string& text) {
  for (const peq::Message& e : m)
    if (e.title == title && e.text == text) return true;
  return false;
}

// Benzene(1)/toluene(2) with a symmetric Redlich-Kister term A = 3: a regular solution with a
// mixing gap (A > 2 splits the liquid; binodal from ln(x/(1 - x)) = A (2x - 1): x = 0.0707,
// 0.9293), vapour pressures and densities as the ideal pair.
inline peq::Session GapPair() {
  peq::Session s = peqtest::BenzeneToluene();
  s.GEModel = 4;
  peqtest::SetSlot(s, 1, 1, 2, 3.0);
  return s;
}

}  // namespace curvetest
