#include "render/picture/XmlText.h"

#include <utf8.h>

namespace lobegraph {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

std::string_view Escaped(char c) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\'':
      return "&#39;";
    default:
      return static_cast<unsigned char>(c) < 0x20 && c != '\t' && c != '\n' ? kReplacement : "";
  }
}

/// U+FFFE and U+FFFF are well-formed UTF-8 but may not stand in a document.
void ReplaceNonCharacters(std::string& text) {
  for (const std::string_view forbidden : {"\xEF\xBF\xBE", "\xEF\xBF\xBF"})
    for (auto at = text.find(forbidden); at != std::string::npos; at = text.find(forbidden, at))
      text.replace(at, forbidden.size(), kReplacement);
}

}  // namespace

std::string XmlText(std::string_view text) {
  std::string result;
  for (const char c : utf8::replace_invalid(std::string(text))) {
    const std::string_view escaped = Escaped(c);
    if (escaped.empty())
      result += c;
    else
      result += escaped;
  }
  ReplaceNonCharacters(result);
  return result;
}

}  // namespace lobegraph
