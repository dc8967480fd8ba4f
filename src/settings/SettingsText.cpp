#include "settings/SettingsText.h"

namespace lobegraph {
namespace {

constexpr std::string_view kBlanks = " \t";
/// Some editors put this in front of UTF-8.
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string_view Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

struct Line {
  std::size_t Begin = 0;
  std::size_t End = 0;    ///< behind the line end
  std::string_view Text;  ///< without the line end
  bool Whole = false;

  bool IsHeader() const { return Trimmed(Text).starts_with('[') && Trimmed(Text).ends_with(']'); }
  bool Opens(std::string_view section) const {
    const std::string_view words = Trimmed(Text);
    return Whole && IsHeader() && Trimmed(words.substr(1, words.size() - 2)) == section;
  }
  bool Has(std::string_view key) const {
    const auto mark = Text.find('=');
    return mark != std::string_view::npos && Trimmed(Text.substr(0, mark)) == key;
  }
  std::string_view Value() const { return Text.substr(Text.find('=') + 1); }
};

Line LineAt(std::string_view text, std::size_t begin) {
  const auto feed = text.find('\n', begin);
  const bool whole = feed != std::string_view::npos;
  std::string_view words = text.substr(begin, whole ? feed - begin : feed);
  if (words.ends_with('\r')) words.remove_suffix(1);
  return {begin, whole ? feed + 1 : text.size(), words, whole};
}

std::size_t TextBegin(std::string_view text) {
  return text.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
}

/// Calls visit(line, inSection) for each line; a header is never in its own section.
template <typename Visit>
void ForEachLine(std::string_view text, std::string_view section, Visit visit) {
  bool inSection = false;
  for (std::size_t at = TextBegin(text); at < text.size();) {
    const Line line = LineAt(text, at);
    at = line.End;
    const bool header = line.IsHeader();
    visit(line, inSection && !header);
    if (header) inSection = line.Opens(section);
  }
}

/// What a write needs to know of the text.
struct Places {
  std::optional<Line> Entry;              ///< the key's line
  std::optional<std::size_t> SectionEnd;  ///< behind the section's last line that is not blank
  std::size_t NewSection = 0;             ///< where a section that is missing goes
};

Places Locate(std::string_view text, std::string_view section, std::string_view key) {
  Places places;
  places.NewSection = TextBegin(text);
  std::optional<std::size_t> lastHeader;
  bool whole = true;
  ForEachLine(text, section, [&](const Line& line, bool inSection) {
    if (inSection && line.Has(key)) places.Entry = line;
    const bool holdsWords = inSection && line.Whole && !Trimmed(line.Text).empty();
    if (holdsWords || line.Opens(section)) places.SectionEnd = line.End;
    if (line.IsHeader()) lastHeader = line.Begin;
    whole = line.Whole;
    places.NewSection = line.Whole ? line.End : line.Begin;
  });
  // The half-written last line must stay the last one and in its own section.
  if (!whole && lastHeader) places.NewSection = *lastHeader;
  return places;
}

std::string_view LineEndOf(std::string_view text) {
  const auto feed = text.find('\n');
  const bool carriage = feed != std::string_view::npos && feed > 0 && text[feed - 1] == '\r';
  return carriage ? "\r\n" : "\n";
}

/// CR LF is one line break.
std::string OnOneLine(std::string_view value) {
  std::string line;
  for (std::size_t i = 0; i < value.size(); ++i) {
    const bool lineBreak = value[i] == '\r' || value[i] == '\n';
    if (value.substr(i, 2) == "\r\n") ++i;
    line += lineBreak ? ' ' : value[i];
  }
  return line;
}

std::string WithInserted(std::string_view text, std::size_t at, const std::string& inserted) {
  return std::string(text.substr(0, at)) + inserted + std::string(text.substr(at));
}

}  // namespace

bool IsWholeText(std::string_view text) { return text.ends_with('\n'); }

std::optional<std::string> FindValue(std::string_view text, std::string_view section, std::string_view key) {
  std::optional<std::string_view> found;
  ForEachLine(text, section, [&](const Line& line, bool inSection) {
    if (inSection && line.Whole && line.Has(key)) found = line.Value();
  });
  if (!found) return std::nullopt;
  return std::string(*found);
}

std::string ReplaceValue(std::string_view text, std::string_view section, std::string_view key,
                         std::string_view value) {
  const Places places = Locate(text, section, key);
  const std::string lineEnd(LineEndOf(text));
  const std::string line = OnOneLine(value) + lineEnd;
  if (places.Entry) {
    const Line& entry = *places.Entry;
    const std::size_t valueBegin = entry.Begin + entry.Text.size() - entry.Value().size();
    return std::string(text.substr(0, valueBegin)) + line + std::string(text.substr(entry.End));
  }
  const std::string entry = std::string(key) + "=" + line;
  if (places.SectionEnd) return WithInserted(text, *places.SectionEnd, entry);
  return WithInserted(text, places.NewSection, "[" + std::string(section) + "]" + lineEnd + entry);
}

bool IsSettingName(std::string_view name) {
  return !name.empty() && Trimmed(name) == name && name.find_first_of("=[]\r\n") == std::string_view::npos &&
         name.front() != '#' && name.front() != ';';
}

}  // namespace lobegraph
