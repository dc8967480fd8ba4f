#pragma once

#include <string>
#include <string_view>

#include "data/table/PatternTable.h"

namespace lobegraph {

/// Antenna files of radio planning programs; their structures stand in docs/formats.md. Readers take the
/// azimuth cut and the dirt that such files are known for. They throw RunTimeError 13 (Type mismatch) for a
/// text without a pattern; a line that cannot be read is passed over. Writers give 360 whole degrees.

/// Planet / MSI (.msi).
PatternTable ReadPlanet(std::string_view text);
/// The vertical cut, which a single cut does not know, is 0 dB all round and said to be unknown.
std::string WritePlanet(const PatternTable& table);

/// NSMA WG16.99.050 (.adf): the first cut that is one of azimuth.
PatternTable ReadNsma(std::string_view text);
std::string WriteNsma(const PatternTable& table);

/// SPLAT! azimuth pattern (.az): field strength, 1 at the strongest.
PatternTable ReadSplat(std::string_view text);
std::string WriteSplat(const PatternTable& table);

/// Radio Mobile (.ant): 360 levels in dB, azimuth first. @throws RunTimeError 62 (Input past end of file) for
/// fewer.
PatternTable ReadRadioMobile(std::string_view text);
std::string WriteRadioMobile(const PatternTable& table);

}  // namespace lobegraph
