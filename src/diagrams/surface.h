// 3D diagrams: a surface over the plane of x2(L) (the fraction of Komp2) and T or p. The surface
// number NoDia3 selects the quantity; InitGraph3D gives titles, axis texts, bound labels and
// default bounds; Calc_3DArray fills the grid ResFeld.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "session/session.h"

namespace peq {

// Surfaces by NoDia3: 0 p = Fu(x2(L), T), 1 T = Fu(x2(L), p), 2 x2(V) = Fu(x2(L), T),
// 3 x2(V) = Fu(x2(L), p), 4 gE, 5 delta(M)g, 6 delta(M)h, 7 T*sE (each over x2(L) and T).
inline constexpr int16_t kAnzFlaechen3D = 8;

// A grid point that could not be computed carries this value; the chart leaves it out.
inline constexpr float kLoch3D = 1.0E+30f;

// Sentinels of the z bounds: an upper bound of 0.01111 means no upper bound has been set, a lower
// bound of -0.01111 no lower bound.
inline constexpr float kOhneZMax = 0.01111f;
inline constexpr float kOhneZMin = -0.01111f;

// Bounds of the grid in display units: x2(L) (mass fraction when ConcUnit), the second axis
// (T in the output unit, or p in kPa), and the clipping bounds of z.
struct Grenzen3D {
  float XMin = 0, XMax = 1;
  float YMin = 0, YMax = 1;
  float ZMin = kOhneZMin, ZMax = kOhneZMax;
};

// The surface, singles, indexes 1..IXDim (x2) and 1..IYDim (second axis).
class Feld3D {
 public:
  void Dim(int16_t nx, int16_t ny) {
    nx_ = nx > 0 ? nx : 0;
    ny_ = ny > 0 ? ny : 0;
    d_.assign(static_cast<std::size_t>(nx_) * static_cast<std::size_t>(ny_), kLoch3D);
  }
  int16_t IXDim() const { return nx_; }
  int16_t IYDim() const { return ny_; }
  float& operator()(int i, int j) { return d_[Index(i, j)]; }
  float operator()(int i, int j) const { return d_[Index(i, j)]; }

 private:
  std::size_t Index(int i, int j) const {
    return static_cast<std::size_t>(j - 1) * static_cast<std::size_t>(nx_) + static_cast<std::size_t>(i - 1);
  }
  int16_t nx_ = 0, ny_ = 0;
  std::vector<float> d_;
};

// Labels of the six bound fields, in the order x min, x max, second min, second max, z min, z max.
using GrenzTexte3D = std::array<std::string, 6>;

// What InitGraph3D sets: the chart's title and axis texts, the bound labels and the bounds the
// window opens with.
struct Graph3D {
  int16_t NoDia3 = 0;
  std::string Titel, XAchse, YAchse, ZAchse;
  GrenzTexte3D GrenzText;
  Grenzen3D Grenzen;
  bool YIstTemperatur = true;  // second axis T (else p)
};

// The caption of the menu item of a surface, "" for an unknown number.
std::string FlaechenName3D(int16_t NoDia3);

// Whether the second axis of the surface is the temperature (false: the pressure).
bool ZweiteAchseT(int16_t NoDia3);

// Titles, axis texts (by ConcUnit, TOffsetOut, FuUnit), bound labels and default bounds. false
// for an unknown number.
bool InitGraph3D(const Session& s, int16_t NoDia3, Graph3D& g);

// Fills ResFeld (IXDim x IYDim) for the surface NoDia3 within the bounds g of the pair
// (Komp1, Komp2) of the session. dx = (XMax - XMin) / IXDim, dy = (YMax - YMin) / IYDim; point
// (i, j) lies at x = (i - 1) dx + XMin, y = (j - 1) dy + YMin. With GapSuche the binodal of each
// row's T is searched (gamma-phi, surfaces over T); a grid x between its two liquids takes the
// straight line between the values at the two ends. A point that fails is kLoch3D. Returns the
// number of holes; -1 when nothing could be computed (unknown surface, not a binary, empty grid).
int Calc_3DArray(Session& s, int16_t NoDia3, int16_t IXDim, int16_t IYDim, Feld3D& ResFeld, const Grenzen3D& g,
                 bool GapSuche);

// The grid coordinates in display units: x of column i and y of row j.
double GitterX(const Grenzen3D& g, int16_t IXDim, int i);
double GitterY(const Grenzen3D& g, int16_t IYDim, int j);

// The clipping of one value against the z bounds (the sentinels switch a side off).
float Kappen3D(float z, float ZMin, float ZMax);

}  // namespace peq
