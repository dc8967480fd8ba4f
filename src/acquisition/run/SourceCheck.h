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

/// Whether the external meter program says that it publishes; the meter window then shows the answer. A
/// refusal is also shown as a message. Deliberate: only "N" refuses, while the poll of a reading accepts only
/// "Y".
bool ExternalMeterReady(const CollectionParts& parts);

/// Whether the chosen meter can deliver; true for the sound card, which is tried when it starts.
bool SourceReady(const CollectionParts& parts);

}  // namespace lobegraph
