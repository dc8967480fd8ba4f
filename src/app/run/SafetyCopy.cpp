#include "app/run/SafetyCopy.h"

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <utility>
#include <vector>

#include "data/base/ReplaceFile.h"
#include "data/base/RunTimeError.h"
#include "data/base/UserFolders.h"
#include "data/formats/PatternFile.h"

namespace lobegraph {
namespace {

namespace fs = std::filesystem;

constexpr const char* kPrefix = "turn ";

bool IsCopy(const fs::path& path) {
  return path.filename().string().starts_with(kPrefix) && path.extension() == ".lbg";
}

/// A second turn within the same second gets a name of its own.
std::string FreePath(const std::string& folder, const std::string& when) {
  fs::path path = fs::path(folder) / (kPrefix + when + ".lbg");
  std::error_code ignored;
  for (int again = 2; fs::exists(path, ignored); ++again)
    path = fs::path(folder) / (kPrefix + when + " " + std::to_string(again) + ".lbg");
  return path.string();
}

}  // namespace

std::string StateFolder() { return UserFolder("XDG_STATE_HOME", ".local/state") + "/lobegraph"; }

SafetyCopy::SafetyCopy(std::string folder, std::string versionText)
    : folder_(std::move(folder)), versionText_(std::move(versionText)) {}

void SafetyCopy::Begin(const std::string& when) {
  failure_.clear();
  file_.reset();
  path_ = FreePath(folder_, when);
}

void SafetyCopy::Store(const ReadingsRecord& record, int lastIndex) {
  ReadingsRecord soFar = record;
  soFar.NumReadings = static_cast<std::int16_t>(lastIndex);
  soFar.ReadingsPlotted = static_cast<std::int16_t>(lastIndex + 1);
  soFar.PeakIndex = 0;  // the record still has that of the pattern before
  Try([&] {
    if (!file_) file_.emplace(path_);
    file_->Rewrite(WritePatternText(soFar, versionText_));
  });
}

void SafetyCopy::Finish(const ReadingsRecord& record) {
  file_.reset();
  if (!path_.empty() && record.NumReadings >= 0)
    Try([&] { ReplaceFile(path_, WritePatternText(record, versionText_)); });
  DropOldest();
}

void SafetyCopy::Try(const std::function<void()>& write) {
  try {
    std::error_code ignored;
    if (!file_) fs::create_directories(folder_, ignored);
    write();
    failure_.clear();
  } catch (const RunTimeError& error) {
    failure_ = error.Description();
  }
}

void SafetyCopy::DropOldest() const {
  std::error_code ignored;
  std::vector<fs::path> copies;
  for (const auto& entry : fs::directory_iterator(folder_, ignored))
    if (IsCopy(entry.path())) copies.push_back(entry.path());
  // The present turn is the newest, whatever a clock that was set back says.
  std::sort(copies.begin(), copies.end(), [this](const fs::path& a, const fs::path& b) {
    return (a == path_) != (b == path_) ? b == path_ : a < b;
  });
  for (std::size_t i = 0; i + kKept < copies.size(); ++i) fs::remove(copies[i], ignored);
}

std::string TimeForFileName() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char text[32];
  return {text, std::strftime(text, sizeof text, "%Y-%m-%d %H.%M.%S", &local)};
}

}  // namespace lobegraph
