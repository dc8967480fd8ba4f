#include "settings/FileSettingsStore.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <utility>

#include "data/base/HomeFolder.h"
#include "data/base/ReplaceFile.h"
#include "data/base/RunTimeError.h"
#include "settings/FileLock.h"
#include "settings/SettingsText.h"

namespace lobegraph {
namespace {

/// An application name becomes a file name: it must not lead into another folder, and must fit with every
/// ending.
bool IsApplicationName(std::string_view name) {
  constexpr std::size_t kLongest = 200;
  return !name.empty() && name.size() <= kLongest && name.front() != '.' &&
         name.find_first_of(std::string_view("/\0", 2)) == std::string_view::npos;
}

constexpr std::int64_t kNsPerSecond = 1'000'000'000;

/// When a plain file was last written.
std::optional<std::int64_t> WrittenNs(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
  return status.st_mtim.tv_sec * kNsPerSecond + status.st_mtim.tv_nsec;
}

}  // namespace

std::string ConfigFolder() { return DesktopFolder("XDG_CONFIG_HOME", ".config"); }

FileSettingsStore::FileSettingsStore(std::string configFolder, std::chrono::milliseconds patience)
    : folder_(std::move(configFolder) + "/lobegraph"), patience_(patience) {}

std::string FileSettingsStore::Place(std::string_view application) const {
  return folder_ + "/" + std::string(application) + ".conf";
}

std::string FileSettingsStore::Get(std::string_view application, std::string_view section,
                                   std::string_view key, std::string_view fallback) {
  if (!IsApplicationName(application)) return std::string(fallback);
  if (const auto waiting = waiting_.find(application); waiting != waiting_.end())
    for (const auto& [waitingSection, value] : waiting->second)
      if (waitingSection == section && value.Key == key) return value.Text;
  return FindValue(CurrentText(application), section, key).value_or(std::string(fallback));
}

bool FileSettingsStore::SaveAll(std::string_view application, std::string_view section,
                                std::span<const SettingToSave> values, Keeping keeping) {
  const auto writable = [](const SettingToSave& value) { return IsSettingName(value.Key); };
  if (!IsApplicationName(application) || !IsSettingName(section) ||
      !std::all_of(values.begin(), values.end(), writable))
    return false;
  std::vector<Waiting> all;
  if (const auto before = waiting_.find(application); before != waiting_.end()) all = before->second;
  for (const SettingToSave& value : values) {
    std::erase_if(all,
                  [&](const Waiting& old) { return old.Section == section && old.Value.Key == value.Key; });
    all.push_back({std::string(section), value});
  }
  const bool saved = TryRewrite(application, all, keeping);
  if (saved)
    waiting_.erase(std::string(application));
  else if (keeping == Keeping::Durable)
    waiting_[std::string(application)] = std::move(all);
  return saved;
}

bool FileSettingsStore::SaveWaiting() {
  for (auto at = waiting_.begin(); at != waiting_.end();)
    at = TryRewrite(at->first, at->second, Keeping::Durable) ? waiting_.erase(at) : std::next(at);
  return waiting_.empty();
}

bool FileSettingsStore::TryRewrite(std::string_view application, const std::vector<Waiting>& values,
                                   Keeping keeping) {
  std::error_code problem;
  std::filesystem::create_directories(folder_, problem);
  const bool wait = keeping == Keeping::Durable && !waitedInVain_;
  const FileLock lock(Place(application) + ".lock", wait ? patience_ : std::chrono::milliseconds(0));
  waitedInVain_ = !lock.Held() && (wait || waitedInVain_);
  if (!lock.Held()) return false;
  try {
    Rewrite(application, values, keeping);
  } catch (const RunTimeError&) {
    return false;
  }
  return true;
}

void FileSettingsStore::Rewrite(std::string_view application, const std::vector<Waiting>& values,
                                Keeping keeping) {
  std::string current = CurrentText(application);
  std::string onDisk = ReadText(application).value_or("");
  for (const auto& [section, value] : values) {
    current = ReplaceValue(current, section, value.Key, value.Text);
    onDisk = ReplaceValue(onDisk, section, value.Key, value.Text);
  }
  ReplaceFile(Place(application), onDisk, keeping == Keeping::Durable ? Flush::Yes : Flush::No);
  // Even while the file stays half-written, what was saved here is read here.
  wholeTexts_[std::string(application)] = {current, WrittenNs(Place(application))};
}

std::optional<StoreChange> FileSettingsStore::LastChange(std::string_view application) {
  if (!IsApplicationName(application)) return std::nullopt;
  CurrentText(application);
  const std::optional<std::int64_t> writtenNs = wholeTexts_[std::string(application)].WrittenNs;
  if (!writtenNs) return std::nullopt;
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  const auto age = std::chrono::nanoseconds(now.tv_sec * kNsPerSecond + now.tv_nsec - *writtenNs);
  return StoreChange{*writtenNs, std::chrono::duration_cast<std::chrono::milliseconds>(age)};
}

std::string FileSettingsStore::CurrentText(std::string_view application) {
  WholeText& lastWhole = wholeTexts_[std::string(application)];
  try {
    const std::optional<std::int64_t> writtenNs = WrittenNs(Place(application));
    const std::optional<std::string> onDisk = ReadText(application);
    const bool halfWritten = onDisk && !IsWholeText(*onDisk);
    if (halfWritten) return lastWhole.Text.empty() ? *onDisk : lastWhole.Text;
    lastWhole = {onDisk.value_or(""), onDisk ? writtenNs : std::nullopt};
  } catch (const RunTimeError&) {
    // It cannot be read just now: the last whole text stands.
  }
  return lastWhole.Text;
}

std::optional<std::string> FileSettingsStore::ReadText(std::string_view application) {
  const std::string path = Place(application);
  try {
    return files_.Read(path);
  } catch (const RunTimeError& error) {
    const bool missing = error.Number() == fault::kFileNotFound || error.Number() == fault::kPathNotFound;
    if (!missing) throw;
    return std::nullopt;
  }
}

}  // namespace lobegraph
