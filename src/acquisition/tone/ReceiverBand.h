#pragma once

#include <optional>

#include "acquisition/tone/ToneLevel.h"

namespace lobegraph {

/// The band that the receiver lets through: where its noise is within 10 dB of its strongest, without a
/// break.
/// @param spectrum of a second or so; a shorter one tells it less surely
/// @param toneHz whose lines do not count; none: none is known
/// @return kUsualReceiverBand where no noise is heard or what is heard is no band at all
Band FindReceiverBand(const PowerSpectrum& spectrum, std::optional<double> toneHz);

}  // namespace lobegraph
