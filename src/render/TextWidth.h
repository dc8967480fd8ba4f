#pragma once

#include <string>
#include <string_view>

namespace lobegraph {

/// Width of a UTF-8 text in Arial as a multiple of its size: exact for what stands on a grid (digits, signs,
/// blanks, "dB"), a good guess for other words.
float ArialWidth(std::string_view text);

/// The text, or as much of its beginning as fits with "..." behind it.
/// @param widest in units @param size of the typeface in units
std::string FittingText(std::string_view text, float widest, float size);

}  // namespace lobegraph
