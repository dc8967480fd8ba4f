#include "data/base/TextEncoding.h"

#include <utf8.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>

namespace lobegraph {
namespace {

/// Windows-1252, codes 0x80 to 0x9F; the rest is the first 256 characters of Unicode.
constexpr std::array<char32_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char32_t FromWindows1252(unsigned char byte) {
  return byte >= 0x80 && byte <= 0x9F ? kUpperControls[byte - 0x80U] : byte;
}

std::optional<char> ToWindows1252(char32_t character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) return static_cast<char>(character);
  const auto found = std::find(kUpperControls.begin(), kUpperControls.end(), character);
  if (found == kUpperControls.end()) return std::nullopt;
  return static_cast<char>(0x80 + std::distance(kUpperControls.begin(), found));
}

bool IsPrintable(char32_t character) {
  const bool control = character < 0x20 || (character >= 0x7F && character < 0xA0);
  return !control && character != 0x2028 && character != 0x2029;
}

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::optional<std::string> AsWindows1252(const std::string& text) {
  std::string bytes;
  for (auto position = text.begin(); position != text.end();) {
    const auto byte = ToWindows1252(utf8::next(position, text.end()));
    if (!byte) return std::nullopt;
    bytes += *byte;
  }
  return bytes;
}

}  // namespace

bool IsUtf8(std::string_view bytes) { return IsAscii(bytes) || utf8::is_valid(bytes.begin(), bytes.end()); }

std::string DecodeText(std::string_view bytes) {
  if (IsUtf8(bytes)) {
    const bool mark = utf8::starts_with_bom(bytes.begin(), bytes.end());
    return std::string(bytes.substr(mark ? 3 : 0));
  }
  std::string text;
  for (const char byte : bytes)
    utf8::append(FromWindows1252(static_cast<unsigned char>(byte)), std::back_inserter(text));
  return text;
}

std::string PrintableText(std::string_view text) {
  const std::string valid = utf8::replace_invalid(std::string(text));
  std::string printable;
  for (auto position = valid.begin(); position != valid.end();) {
    const char32_t character = utf8::next(position, valid.end());
    utf8::append(IsPrintable(character) ? character : U' ', std::back_inserter(printable));
  }
  return printable;
}

std::string EncodeText(const std::string& text) {
  if (IsAscii(text)) return text;
  const std::string valid = utf8::replace_invalid(text);
  const auto bytes = AsWindows1252(valid);
  const bool takenForUtf8 = bytes && utf8::is_valid(bytes->begin(), bytes->end());
  return bytes && !takenForUtf8 ? *bytes : valid;
}

}  // namespace lobegraph
