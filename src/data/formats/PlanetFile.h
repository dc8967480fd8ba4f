#pragma once

#include <string>

#include "data/table/PatternTable.h"
#include "data/table/TextLines.h"

namespace lobegraph {

/// Antenna file of Planet and MSI (.msi): the horizontal cut, dB below the strongest without a minus sign;
/// its structure stands in docs/formats.md. The dirt of other writers is taken; a line that cannot be read is
/// passed over.
/// @throws RunTimeError 13 (Type mismatch) for a text without a horizontal cut
PatternTable ReadPlanet(TextLines& lines);

/// 360 whole degrees. The vertical cut, which a single cut does not know, is 0 dB all round and said to be
/// unknown.
std::string WritePlanet(const PatternTable& table);

}  // namespace lobegraph
