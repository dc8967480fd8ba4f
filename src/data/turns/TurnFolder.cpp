#include "data/turns/TurnFolder.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <filesystem>

#include "data/base/FileAccess.h"
#include "data/base/HomeFolder.h"
#include "data/base/RunTimeError.h"
#include "data/formats/PatternFile.h"
#include "data/turns/HeldFile.h"

namespace lobegraph {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPrefix = "turn ";
constexpr std::string_view kPatternEnding = ".lbg";
constexpr std::string_view kLogEnding = ".turn.csv";
constexpr float kSilence = 1.F;  // what silence is stored as, at most

/// 0 stands for a digit, n for one digit or more, anything else for itself.
bool Matches(std::string_view text, std::string_view shape) {
  const auto digit = [](char c) { return c >= '0' && c <= '9'; };
  for (const char expected : shape) {
    if (text.empty()) return false;
    const bool any = expected == '0' || expected == 'n';
    if (any ? !digit(text.front()) : text.front() != expected) return false;
    text.remove_prefix(1);
    while (expected == 'n' && !text.empty() && digit(text.front())) text.remove_prefix(1);
  }
  return text.empty();
}

constexpr std::string_view kWhenShape = "0000-00-00 00.00.00";
constexpr std::size_t kMostDigits = 18;

std::optional<TurnName> Numbered(std::string_view stem) {
  const std::string_view rest = stem.substr(kPrefix.size());
  const std::size_t digits = rest.find(' ');
  if (digits == std::string_view::npos || digits < 6 || digits > kMostDigits) return std::nullopt;
  if (!Matches(rest.substr(0, digits), "n") || !Matches(rest.substr(digits + 1), kWhenShape))
    return std::nullopt;
  TurnName name{.Number = 0, .When = std::string(rest.substr(digits + 1)), .Stem = std::string(stem)};
  std::from_chars(rest.data(), rest.data() + digits, name.Number);
  return name;
}

/// "turn 2026-11-21 10.22.33", with " 2" behind it for a second one of the same second.
std::optional<TurnName> Unnumbered(std::string_view stem) {
  const std::string_view when = stem.substr(kPrefix.size(), kWhenShape.size());
  const std::string_view again = stem.substr(std::min(stem.size(), kPrefix.size() + kWhenShape.size()));
  if (!Matches(when, kWhenShape) || !(again.empty() || Matches(again, " n"))) return std::nullopt;
  return TurnName{.Number = 0, .When = std::string(when), .Stem = std::string(stem)};
}

bool Newer(const KeptTurn& a, const KeptTurn& b) {
  if (a.Name.Number != b.Name.Number) return a.Name.Number > b.Name.Number;
  return a.Name.Stem > b.Name.Stem;
}

void Drop(const KeptTurn& turn) {
  std::error_code ignored;
  fs::remove(LogPathOf(turn.Path), ignored);
  fs::remove(turn.Path, ignored);
}

}  // namespace

std::optional<TurnName> TurnNameOf(std::string_view fileName) {
  if (!fileName.starts_with(kPrefix) || !fileName.ends_with(kPatternEnding)) return std::nullopt;
  const std::string_view stem = fileName.substr(0, fileName.size() - kPatternEnding.size());
  if (stem.size() < kPrefix.size()) return std::nullopt;
  const auto name = Numbered(stem);
  return name && name->Number > 0 ? name : Unnumbered(stem);
}

std::string LogPathOf(const std::string& patternPath) {
  const bool ends = WithEnding(patternPath, kPatternEnding) == patternPath;
  return patternPath.substr(0, patternPath.size() - (ends ? kPatternEnding.size() : 0)) +
         std::string(kLogEnding);
}

std::string StateFolder() { return DesktopFolder("XDG_STATE_HOME", ".local/state") + "/lobegraph"; }

bool WorthKeeping(const std::string& patternPath) {
  try {
    DiskFiles disk;
    ReadingsRecord record;
    if (LoadPatternFile(disk, patternPath, {}, record).Error) return true;
    if (record.NumReadings + 1 < kFewestWorthy) return false;
    return std::any_of(record.Readings.begin(), record.Readings.end(),
                       [](float level) { return level > kSilence; });
  } catch (const RunTimeError&) {
    return true;
  }
}

std::vector<KeptTurn> KeptTurns(const std::string& folder) {
  std::vector<KeptTurn> turns;
  std::error_code ignored;
  for (const auto& entry : fs::directory_iterator(folder, ignored)) {
    if (!entry.is_regular_file(ignored)) continue;
    const auto name = TurnNameOf(entry.path().filename().string());
    if (name) turns.push_back({.Name = *name, .Path = entry.path().string()});
  }
  std::sort(turns.begin(), turns.end(), Newer);
  return turns;
}

void DropOldTurns(const std::string& folder) {
  std::size_t worthy = 0;
  std::size_t others = 0;
  for (const KeptTurn& turn : KeptTurns(folder)) {
    const bool stays = WorthKeeping(turn.Path) ? worthy++ < kWorthyKept : others++ < kShortKept;
    if (!stays && !HeldElsewhere(turn.Path)) Drop(turn);
  }
}

}  // namespace lobegraph
