#pragma once

#include <string>

#include "data/table/PatternTable.h"
#include "data/table/TextLines.h"

namespace lobegraph {

/// Radio Mobile (.ant): a level in dB a line, 360 azimuths first; what follows is elevation and passed over.
/// @throws RunTimeError 62 (Input past end of file) for fewer than 360 levels
PatternTable ReadRadioMobile(TextLines& lines);

/// The 360 azimuths.
std::string WriteRadioMobile(const PatternTable& table);

}  // namespace lobegraph
