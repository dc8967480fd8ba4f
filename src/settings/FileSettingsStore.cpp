#include "settings/FileSettingsStore.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <utility>

#include "data/base/ReplaceFile.h"
#include "data/base/RunTimeError.h"
#include "settings/FileLock.h"
#include "settings/SettingsText.h"

namespace lobegraph {
namespace {

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

std::string HomeFolder() {
  std::string home = Environment("HOME");
  if (!home.empty()) return home;
  const passwd* user = getpwuid(getuid());
  return user == nullptr ? "/" : user->pw_dir;
}

/// An application name becomes a file name: it must not lead into another folder.
bool IsApplicationName(std::string_view name) {
  return !name.empty() && name.front() != '.' &&
         name.find_first_of(std::string_view("/\0", 2)) == std::string_view::npos;
}

}  // namespace

std::string ConfigFolder() {
  const std::string folder = Environment("XDG_CONFIG_HOME");
  return folder.starts_with('/') ? folder : HomeFolder() + "/.config";
}

FileSettingsStore::FileSettingsStore(std::string configFolder, std::chrono::milliseconds patience)
    : folder_(std::move(configFolder) + "/lobegraph"), patience_(patience) {}

std::string FileSettingsStore::Place(std::string_view application) const {
  return folder_ + "/" + std::string(application) + ".conf";
}

std::string FileSettingsStore::Get(std::string_view application, std::string_view section,
                                   std::string_view key, std::string_view fallback) {
  if (!IsApplicationName(application)) return std::string(fallback);
  return FindValue(CurrentText(application), section, key).value_or(std::string(fallback));
}

bool FileSettingsStore::Save(std::string_view application, std::string_view section, std::string_view key,
                             std::string_view text) {
  if (!IsApplicationName(application) || !IsSettingName(section) || !IsSettingName(key)) return false;
  std::error_code problem;
  std::filesystem::create_directories(folder_, problem);
  const FileLock lock(Place(application) + ".lock", patience_);
  if (!lock.Held()) return false;
  try {
    Rewrite(application, section, key, text);
  } catch (const RunTimeError&) {
    return false;
  }
  return true;
}

void FileSettingsStore::Rewrite(std::string_view application, std::string_view section, std::string_view key,
                                std::string_view text) {
  const std::string current = CurrentText(application);
  const std::string onDisk = ReadText(application).value_or("");
  ReplaceFile(Place(application), ReplaceValue(onDisk, section, key, text));
  // Even while the file stays half-written, what was saved here is read here.
  wholeTexts_[std::string(application)] = ReplaceValue(current, section, key, text);
}

std::string FileSettingsStore::CurrentText(std::string_view application) {
  std::string& lastWhole = wholeTexts_[std::string(application)];
  try {
    const std::optional<std::string> onDisk = ReadText(application);
    const bool halfWritten = onDisk && !IsWholeText(*onDisk);
    if (halfWritten) return lastWhole.empty() ? *onDisk : lastWhole;
    lastWhole = onDisk.value_or("");
  } catch (const RunTimeError&) {
    // It cannot be read just now: the last whole text stands.
  }
  return lastWhole;
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
