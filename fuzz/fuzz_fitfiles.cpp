// The exchange files of the parameter fit: the input is read as TO_FIT.DAT, as TO_FITZ.DAT and as
// both answer files. A task that reads has an active point, points inside their ranges and
// limits in order, and writes a TO_FIT.DAT that reads back to the same points; an answer that
// reads has its count of values and writes a text that reads back to the same answer.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

#include "companions/exchangetext.h"
#include "companions/fitfiles.h"
#include "companions/fitinput.h"
#include "fuzz_support.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  using namespace peqfuzz;
  const std::string text(reinterpret_cast<const char*>(data), size);

  for (bool phiPhi : {false, true}) {
    peq::FitAufgabe task;
    bool read = true;
    try {
      peq::ReadFitAufgabe(text, phiPhi, task);
    } catch (const peq::ExchangeError& e) {
      read = false;
      Require(!e.text.empty(), "a read failure without a reason");
    }
    if (read) {
      Require(!task.Punkte.empty(), "a task without an active point");
      for (const peq::FitPunkt& p : task.Punkte)
        Require(p.T > 0 && p.p > 0 && p.x2L >= 0 && p.x2L <= 1 && p.x2V >= 0 && p.x2V <= 1,
                "a point outside its range");
      RequireFinite(task.S, "ReadFitAufgabe");
      if (!phiPhi) {
        const std::string again = peq::ToFitText(task.S, task.Tabelle, task.FitArt, task.Punkte);
        peq::FitAufgabe back;
        try {
          peq::ReadFitAufgabe(again, false, back);
        } catch (const peq::ExchangeError& e) {
          Require(false, "a written TO_FIT.DAT does not read back: " + e.text);
        }
        Require(back.Punkte.size() == task.Punkte.size(), "the point count changed on the way back");
      }
    }

    peq::FitAntwort a;
    std::string err;
    if (peq::ReadFitAntwort(text, phiPhi, a, err)) {
      Require(static_cast<int>(a.L.size()) == peq::AntwortWerte(phiPhi), "an answer of the wrong length");
      Require(a.Iterationen >= 0 && std::isfinite(a.Zielfunktion), "an answer with a bad count or objective");
      peq::FitAntwort b;
      Require(peq::ReadFitAntwort(peq::FitAntwortText(a), phiPhi, b, err), "a written answer does not read");
      Require(b.L == a.L && b.Iterationen == a.Iterationen && b.Zielfunktion == a.Zielfunktion,
              "a written answer reads back different");
    } else {
      Require(!err.empty(), "a failed answer read without a reason");
    }
  }
  return 0;
}
