#pragma once

#include <string>
#include <string_view>

namespace lobegraph {

bool IsUtf8(std::string_view bytes);

/// Bytes of a text file as UTF-8: unchanged (a byte-order mark dropped) when they are valid UTF-8, else read
/// as Windows-1252, whose five unused codes become the control characters of the same value.
std::string DecodeText(std::string_view bytes);

/// One line that a terminal shows and obeys in nothing: each control character, line end and separator of
/// lines becomes a blank, bytes that are no UTF-8 become U+FFFD.
std::string PrintableText(std::string_view text);

/// UTF-8 text as the bytes to write: Windows-1252 when every character fits and the bytes would not be taken
/// for UTF-8 by chance (plain ASCII is both), so that older programs show umlauts rightly; else UTF-8.
/// DecodeText undoes it.
std::string EncodeText(const std::string& text);

}  // namespace lobegraph
