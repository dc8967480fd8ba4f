#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace lobegraph {

/// The text of a settings file: lines "[Section]" and "key=value", LF or CR LF. A value is everything behind
/// the first "=" to the end of the line, blanks included; blanks around a key do not count. Of several lines
/// with one key the last counts. Any other line (a comment, say) is somebody's and means nothing here. A last
/// line without its line end is half-written, and so is an empty text: somebody is at work on it.

/// Whether nothing of the text is half-written.
bool IsWholeText(std::string_view text);

/// The value of a key, from the whole lines only.
std::optional<std::string> FindValue(std::string_view text, std::string_view section, std::string_view key);

/// The text with one value created or replaced, all else kept byte for byte: foreign lines, their order and a
/// half-written last line, which stays last (unless it is this key's own line: that one is completed). Line
/// breaks in the value become blanks.
/// @param section,key names for which IsSettingName holds
std::string ReplaceValue(std::string_view text, std::string_view section, std::string_view key,
                         std::string_view value);

/// Whether a section or key can be written so that it is found again: not empty, no "=", no bracket, no line
/// break, no blank at its ends, no comment mark (# or ;) in front.
bool IsSettingName(std::string_view name);

}  // namespace lobegraph
