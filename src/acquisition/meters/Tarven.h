#pragma once

#include "acquisition/meters/SerialProtocol.h"

namespace lobegraph {

/// The TARVEN dB meter: a number stands between a carriage return and a blank, in tenths of a dB; a minus
/// takes it back. Its name, which it says now and then, makes the rest of that text meaningless.
/// Deliberate: the characters of a number stay until the next carriage return.
void ReceiveTarven(std::string_view text, Reception& reception, const NumberReceived& received);

}  // namespace lobegraph
