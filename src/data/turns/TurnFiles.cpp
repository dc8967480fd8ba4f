#include "data/turns/TurnFiles.h"

#include <array>

#include "data/base/RunTimeError.h"
#include "data/formats/PatternFile.h"
#include "data/turns/TurnDigest.h"
#include "data/turns/TurnFolder.h"
#include "data/turns/TurnLogText.h"

namespace lobegraph {
namespace {

constexpr std::size_t kPieceBytes = 1U << 16U;

/// @throws RunTimeError as FileAccess::Open
std::string BytesOf(FileAccess& files, const std::string& path) {
  const auto stream = files.Open(path, kLargestTurnLog);
  std::string bytes;
  std::array<char, kPieceBytes> piece{};
  while (stream->read(piece.data(), piece.size()), stream->gcount() > 0)
    bytes.append(piece.data(), static_cast<std::size_t>(stream->gcount()));
  return bytes;
}

/// Bytes of the log that lies there; none without one.
std::optional<std::string> FormerLog(FileAccess& files, const std::string& path) {
  try {
    return files.Exists(path) ? std::optional(BytesOf(files, path)) : std::nullopt;
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

/// Best endeavour: the fault that made it necessary is the one to be told.
void PutBack(FileAccess& files, const std::string& path, const std::optional<std::string>& former) {
  try {
    if (former)
      files.Replace(path, *former);
    else
      files.Remove(path);
  } catch (const RunTimeError&) {
    return;
  }
}

/// The log that lies there is that of the pattern which is about to be replaced.
bool FormerOwnsLog(FileAccess& files, const std::string& patternPath) {
  try {
    ReadingsRecord record;
    if (LoadPatternFile(files, patternPath, {}, record).Error) return false;
    return ReadLogBeside(files, patternPath, record).Log.has_value();
  } catch (const RunTimeError&) {
    return false;
  }
}

std::string TriedLog(FileAccess& files, const std::string& path, const TurnLog& log) {
  try {
    files.Replace(path, TurnLogText(log));
    return "";
  } catch (const RunTimeError& error) {
    return FileNameOf(path) + " could not be written (" + error.Description() + ").";
  }
}

std::string ReasonOf(const RunTimeError& error) {
  std::string advice = error.AdviceText();
  if (advice.ends_with('.')) advice.pop_back();
  if (!advice.empty()) return advice;
  return error.Number() == fault::kTypeMismatch ? error.Detail() : error.Description();
}

}  // namespace

LogBeside ReadLogBeside(FileAccess& files, const std::string& patternPath, const ReadingsRecord& record) {
  const std::string path = LogPathOf(patternPath);
  if (!files.Exists(path)) return {};
  try {
    TurnLog log = ReadTurnLog(BytesOf(files, path));
    if (OwnerOf(log, record) != LogOwner::Another) return {std::move(log), ""};
    return {std::nullopt, FileNameOf(path) + " belongs to another pattern; it is left alone."};
  } catch (const RunTimeError& error) {
    return {std::nullopt, FileNameOf(path) + " cannot be read (" + ReasonOf(error) + ")."};
  }
}

std::string SaveTurn(FileAccess& files, const std::string& patternPath, std::string_view pattern,
                     const std::optional<TurnLog>& log) {
  const std::string path = LogPathOf(patternPath);
  const std::optional<std::string> former = FormerLog(files, path);
  const bool formerGoes = former && FormerOwnsLog(files, patternPath);
  const std::string failure = log ? TriedLog(files, path, *log) : "";
  const bool logWritten = log && failure.empty();
  try {
    files.Replace(patternPath, pattern);
  } catch (const RunTimeError&) {
    if (logWritten) PutBack(files, path, former);
    throw;
  }
  if (!logWritten && formerGoes) PutBack(files, path, std::nullopt);
  return failure;
}

}  // namespace lobegraph
