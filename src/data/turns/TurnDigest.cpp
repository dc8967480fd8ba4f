#include "data/turns/TurnDigest.h"

#include <sha2.h>

#include <algorithm>
#include <array>

#include "data/base/Numbers.h"

namespace lobegraph {
namespace {

constexpr int kMostSaves = 20;

int CountOf(const ReadingsRecord& record) {
  return std::clamp<int>(record.NumReadings + 1, 0, ReadingArray::kSize);
}

/// Calls for each line of a key "saved": digest, one blank, commands.
template <typename Action>
void ForEachSave(const TurnLog& log, Action&& action) {
  for (const auto& [key, line] : log.Keys()) {
    if (key != turnkey::kSaved) continue;
    const std::string_view text = line;
    const std::size_t blank = std::min(text.find(' '), text.size());
    action(text.substr(0, blank), text.substr(std::min(blank + 1, text.size())));
  }
}

/// As files write both, so that a table saved by another program still agrees.
bool LevelIs(const TurnLog& log, std::size_t row, float reading) {
  const auto level = log.Number(row, turncolumn::kLevel);
  return level && SingleText(static_cast<float>(*level)) == SingleText(reading);
}

bool LevelsAgree(const TurnLog& log, const ReadingsRecord& record) {
  const int rows = static_cast<int>(log.Rows().size());
  const int readings = CountOf(record);
  if (rows == 0 || std::abs(rows - readings) > 1) return false;
  for (int i = 0; i < std::min(rows, readings); ++i)
    if (!LevelIs(log, static_cast<std::size_t>(i), record.Readings(i))) return false;
  return true;
}

}  // namespace

std::string DigestOf(const ReadingsRecord& record) {
  SHA2_CTX context;
  SHA256Init(&context);
  for (int i = 0; i < CountOf(record); ++i) {
    const std::string line = SingleText(record.Readings(i)) + "\n";
    SHA256Update(&context, reinterpret_cast<const std::uint8_t*>(line.data()), line.size());
  }
  std::array<char, SHA256_DIGEST_STRING_LENGTH> digits{};
  return std::string("sha256:") + SHA256End(&context, digits.data());
}

LogOwner OwnerOf(const TurnLog& log, const ReadingsRecord& record) {
  const std::string digest = DigestOf(record);
  const std::string collected = log.Key(turnkey::kCollected);
  if (collected == digest) return LogOwner::Collected;
  bool saved = false;
  ForEachSave(log, [&](std::string_view noted, std::string_view) { saved = saved || noted == digest; });
  if (saved) return LogOwner::Saved;
  return collected.empty() && LevelsAgree(log, record) ? LogOwner::Unfinished : LogOwner::Another;
}

void NoteCollected(TurnLog& log, const ReadingsRecord& record) {
  log.SetKey(turnkey::kCollected, DigestOf(record));
}

void NoteSaved(TurnLog& log, const ReadingsRecord& record, std::string_view commands) {
  const std::string digest = DigestOf(record);
  std::vector<std::string> lines;
  ForEachSave(log, [&](std::string_view noted, std::string_view words) {
    if (noted != digest)
      lines.push_back(std::string(noted) + (words.empty() ? "" : " ") + std::string(words));
  });
  if (lines.size() >= kMostSaves) lines.erase(lines.begin());
  lines.push_back(digest + (commands.empty() ? "" : " ") + std::string(commands));
  log.SetKey(turnkey::kSaved, "");
  for (const std::string& line : lines) log.AddKey(turnkey::kSaved, line);
}

std::string CommandsOf(const TurnLog& log, const ReadingsRecord& record) {
  const std::string digest = DigestOf(record);
  std::string found;
  ForEachSave(log, [&](std::string_view noted, std::string_view words) {
    if (noted == digest) found = words;
  });
  return found;
}

}  // namespace lobegraph
