// TO_BATCH.DAT read back by PEQBATCH.EXE into a session of its own and the run's settings.
#pragma once

#include <string_view>

#include "companions/batchfiles.h"
#include "session/session.h"

namespace peqbatch {

struct Aufgabe {
  peq::Session S;  // the mixture with its models and the batch fields
  peq::BatchStart Start;
};

// Throws peq::ExchangeError on a short or garbled file or values out of their range.
void ReadToBatch(std::string_view text, Aufgabe& a);

}  // namespace peqbatch
