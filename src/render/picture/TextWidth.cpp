#include "render/picture/TextWidth.h"

#include <algorithm>

namespace lobegraph {
namespace {

constexpr std::string_view kNarrow = " !,./:;I[\\]fijlt|'";
constexpr float kNarrowWidth = 0.278F;
constexpr float kHyphenWidth = 0.333F;
constexpr float kUsualWidth = 0.556F;
constexpr float kCapitalWidth = 0.667F;
constexpr float kWideWidth = 0.833F;

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
  if (ArialWidth(text) * size <= widest) return std::string(text);
  while (!text.empty() && (ArialWidth(text) + ArialWidth("...")) * size > widest) {
    while (text.size() > 1 && Continues(text.back())) text.remove_suffix(1);
    text.remove_suffix(1);
  }
  return std::string(text) + "...";
}

}  // namespace lobegraph
