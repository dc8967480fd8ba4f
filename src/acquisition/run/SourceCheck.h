#pragma once

#include "acquisition/run/CollectionParts.h"

namespace lobegraph {

inline constexpr const char* kMeterPortMessage =
    "The Com port for the serially attached dB meter is not available";
inline constexpr const char* kExternalMeterMessage =
    "The external power meter is not ready and receiving readings.\r\n\r\n"
    "Please retry after resolving the above problem.";
inline constexpr const char* kNoInputMessage =
    "LBG006 Cannot take readings - calibrate input function inoperative";

/// Whether the external meter program is ready (see ExternalMeter::Ready); a refusal is also shown as a
/// message.
bool ExternalMeterReady(const CollectionParts& parts);

/// Whether the chosen meter can deliver; true for the sound card, which is tried when it starts.
bool SourceReady(const CollectionParts& parts);

/// Until the meter has sent enough for a mean, at once when it has; goesOn is asked at each sample. What a
/// meter program published during another run is no value of this one.
void AwaitMeter(const CollectionParts& parts, const std::function<bool()>& goesOn);

}  // namespace lobegraph
