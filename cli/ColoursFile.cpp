#include "cli/ColoursFile.h"

#include <charconv>
#include <string>

#include "data/base/Numbers.h"
#include "data/base/Rounding.h"
#include "data/base/RunTimeError.h"
#include "settings/SettingsTable.h"
#include "settings/SettingsText.h"

namespace lobegraph {
namespace {

struct ColourRow {
  std::string_view Key;
  Colour PlotColours::*Member;
  std::string_view Default;
};
constexpr ColourRow kRows[] = {
    {"PlotBackground", &PlotColours::PlotBackground, RowOf("PlotBackground").Default},
    {"PlotGridColour", &PlotColours::PlotGridColour, RowOf("PlotGridColour").Default},
    {"PlotLineColour", &PlotColours::PlotLineColour, RowOf("PlotLineColour").Default},
    {"PlotLineOverlayColour", &PlotColours::PlotLineOverlayColour, RowOf("PlotLineOverlayColour").Default},
    {"PlotUserColour", &PlotColours::PlotUserColour, RowOf("PlotUserColour").Default},
    {"PlotUserOverlayColour", &PlotColours::PlotUserOverlayColour, RowOf("PlotUserOverlayColour").Default}};

Colour HexColour(std::string_view digits) {
  unsigned value = 0;
  const auto [end, problem] = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
  const bool whole = problem == std::errc() && end == digits.data() + digits.size();
  if (!whole || digits.size() != 6) throw RunTimeError(fault::kTypeMismatch);
  return {static_cast<std::uint8_t>(value >> 16U), static_cast<std::uint8_t>(value >> 8U & 255U),
          static_cast<std::uint8_t>(value & 255U)};
}

Colour ColourFromText(std::string_view text) {
  if (text.starts_with('#')) return HexColour(text.substr(1));
  return Colour::FromStored(ToInt32(WholeNumberText(text)));
}

Colour Read(std::string_view text, const ColourRow& row) {
  const std::string value = FindValue(text, kSettingsSection, row.Key).value_or(std::string(row.Default));
  try {
    return ColourFromText(value);
  } catch (const RunTimeError&) {
    throw RunTimeError(fault::kTypeMismatch, std::string(row.Key) + "=" + value);
  }
}

}  // namespace

PlotColours DefaultColours() { return ReadColours(""); }

PlotColours ReadColours(std::string_view text) {
  const bool hasSection = text.find('[') != std::string_view::npos;
  const std::string whole =
      (hasSection ? "" : "[" + std::string(kSettingsSection) + "]\n") + std::string(text) + "\n";
  PlotColours colours;
  for (const ColourRow& row : kRows) colours.*row.Member = Read(whole, row);
  return colours;
}

}  // namespace lobegraph
