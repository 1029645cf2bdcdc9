// From a Reading to the bytes of one message, start character to end characters. Pure.
// One source file for each family; `Encode` picks by the model.
#pragma once

#include <string>

#include "instrument.h"

namespace cumeron::sim {

std::string Encode(const InstrumentSetup& setup, const Reading& reading);

std::string EncodeRv(const InstrumentSetup& setup, const Reading& reading);
std::string EncodeRv10x(const InstrumentSetup& setup, const Reading& reading);
std::string EncodeKn(const InstrumentSetup& setup, const Reading& reading);
std::string EncodeTq60(const InstrumentSetup& setup, const Reading& reading);

// The status word as it stands in the message, empty for the TQ60, which sends none.
std::string StatusWord(const InstrumentSetup& setup, const Reading& reading);
std::string StatusWordRv(const InstrumentSetup& setup, const Reading& reading);
std::string StatusWordRv10x(const InstrumentSetup& setup, const Reading& reading);
std::string StatusWordKn(const InstrumentSetup& setup, const Reading& reading);

}  // namespace cumeron::sim
