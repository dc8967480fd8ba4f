#include "data/formats/RadioMobileFile.h"

#include "data/base/Numbers.h"
#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

constexpr std::size_t kAzimuths = 360;

}  // namespace

PatternTable ReadRadioMobile(TextLines& lines) {
  PatternTable table;
  while (const auto line = lines.Next()) {
    const auto level = NumberIn(*line);
    if (!level) continue;
    table.Points.push_back({static_cast<double>(table.Points.size()), *level});
    if (table.Points.size() == kAzimuths) return table;
  }
  throw RunTimeError(fault::kInputPastEnd, "less than 360 azimuths");
}

std::string WriteRadioMobile(const PatternTable& table) {
  std::string text;
  for (const double level : WholeDegrees(table)) text += FixedText(level == 0.0 ? 0.0 : level, 3) + "\r\n";
  return text;
}

}  // namespace lobegraph
