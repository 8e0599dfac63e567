// The checks and calculation of one McCabe-Thiele design, shared by the design dialog and the
// command-line calculator: the order of the compositions, the reflux ratio, the azeotrope, the
// order of the components, the enthalpy factor, the operating lines and the minimum reflux ratio.
// Every refusal is a message with the system's text; nothing is shown here.
#pragma once

#include <string>

#include "distillation/mccabe.h"
#include "session/message.h"

namespace peq {

inline constexpr const char* kThieleTitel = "Execution not possible";
inline constexpr const char* kThieleBereich = "the input concentrations have to be in the range 0 < x < 1";
inline constexpr const char* kThieleRRNull = "The reflux ratio has to greater than 0.";
inline constexpr const char* kThieleIteration = "max. number of iterations exceeded  ";
inline constexpr const char* kThieleRRKlein = "The reflux ratio chosen has to be greater than the minimum-RR!";
inline constexpr const char* kThieleRRMinFehler = "Error while calculating RR(min)";
inline constexpr const char* kThieleHLVRat = "(Advice: Switch off the checkbox \"delta(LV)H\")";

// The order and range text.
std::string ThieleReihenfolgeText();
// The azeotrope texts: kind 0 (temperature maximum) or -1 (pressure maximum); n the number of the
// component on the axis, einheit "x" or "ksi", wert the azeotropic composition as shown.
std::string ThieleAzeotropText(int16_t kind, int n, const std::string& einheit, double wert);
// The text when the components stand in the wrong order.
std::string ThieleFluechtigText();

// Whether each given composition lies in 0 < x < 1 (the feed only with a feed).
bool ThieleBereichOK(const ThieleDaten& d);

struct ThieleAzeotrop {
  bool Gefunden = false;
  double X = 0;       // in the axis unit and direction
  int16_t Kind = 0;   // -1 pressure maximum, 0 temperature maximum
};

// From the enthalpy factor to the minimum reflux ratio, for d with its compositions, RR, p,
// OhneFeed and MitHLV set. false with the refusal in sink (title kThieleTitel) when the design is
// refused; then nothing reaches the diagram. rrMin gets the minimum reflux ratio once computed.
bool ThieleAuslegung(Session& s, ThieleDaten& d, float& rrMin, ThieleAzeotrop& az, MsgSink& sink);

}  // namespace peq
