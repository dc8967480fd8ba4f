#pragma once

#include "acquisition/meters/SerialProtocol.h"

namespace lobegraph {

/// The ROSKA power meter: digits that a semicolon ends, in tenths of a dB; a blank begins anew, anything else
/// means nothing. Numbers are counted. @throws RunTimeError 6 when the count overflows; the number was handed
/// over
void ReceiveRoska(std::string_view text, Reception& reception, const NumberReceived& received);

}  // namespace lobegraph
