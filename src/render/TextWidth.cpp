#include "render/TextWidth.h"

namespace lobegraph {
namespace {

constexpr std::string_view kNarrow = " !,./:;I[\\]fijlt|'";
constexpr float kNarrowWidth = 0.278F;
constexpr float kHyphenWidth = 0.333F;
constexpr float kUsualWidth = 0.556F;
constexpr float kCapitalWidth = 0.667F;
constexpr float kWideWidth = 0.833F;
constexpr std::string_view kDots = "...";

bool Continues(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

float WidthOf(char c) {
  if (Continues(c)) return 0.F;
  if (kNarrow.find(c) != std::string_view::npos) return kNarrowWidth;
  if (c == '-' || c == '(' || c == ')' || c == 'r') return kHyphenWidth;
  if (c == 'm' || c == 'M' || c == 'W' || c == '@' || c == '%') return kWideWidth;
  return c >= 'A' && c <= 'Z' ? kCapitalWidth : kUsualWidth;
}

}  // namespace

float ArialWidth(std::string_view text) {
  float width = 0.F;
  for (const char c : text) width += WidthOf(c);
  return width;
}

std::string FittingText(std::string_view text, float widest, float size) {
  const float dots = ArialWidth(kDots);
  float width = 0.F;
  std::size_t fitting = 0;  // bytes of the text that leave room for the dots
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (!Continues(text[at]) && (width + dots) * size <= widest) fitting = at;
    width += WidthOf(text[at]);
    if (width * size > widest) return std::string(text.substr(0, fitting)).append(kDots);
  }
  return std::string(text);
}

}  // namespace lobegraph
