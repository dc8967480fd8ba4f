#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace lobegraph {

/// The word that a misspelt one was probably meant to be: with the fewest letters changed, added, left out or
/// swapped with their neighbours, at most a third of it and one more. None: it is like none of them.
std::optional<std::string_view> NearestWord(std::string_view typed, std::span<const std::string_view> words);

}  // namespace lobegraph
