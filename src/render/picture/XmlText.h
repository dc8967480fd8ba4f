#pragma once

#include <string>
#include <string_view>

namespace lobegraph {

/// A text as it stands between tags or in an attribute; characters that a document may not hold (controls,
/// broken UTF-8) become the replacement character.
std::string XmlText(std::string_view text);

}  // namespace lobegraph
