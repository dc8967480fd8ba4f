#include "data/base/WallTime.h"

#include <array>
#include <chrono>
#include <ctime>

namespace lobegraph {
namespace {

constexpr std::int64_t kMsPerSecond = 1000;

std::tm LocalTime(std::int64_t seconds) {
  const auto time = static_cast<std::time_t>(seconds);
  std::tm local{};
  localtime_r(&time, &local);
  return local;
}

std::string Formatted(const std::tm& local, const char* form) {
  std::array<char, 64> text{};
  return {text.data(), std::strftime(text.data(), text.size(), form, &local)};
}

}  // namespace

std::int64_t WallTimeMs() {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
}

std::string IsoTime(std::int64_t wallTimeMs) {
  std::int64_t milliseconds = wallTimeMs % kMsPerSecond;
  if (milliseconds < 0) milliseconds += kMsPerSecond;
  const std::tm local = LocalTime((wallTimeMs - milliseconds) / kMsPerSecond);
  const std::string fraction = std::to_string(kMsPerSecond + milliseconds).substr(1);
  std::string offset = Formatted(local, "%z");  // "+0100"
  if (offset.size() == 5) offset.insert(3, ":");
  return Formatted(local, "%Y-%m-%dT%H:%M:%S.") + fraction + offset;
}

std::string TimeForFileName(std::int64_t wallTimeMs) {
  return Formatted(LocalTime(wallTimeMs / kMsPerSecond), "%Y-%m-%d %H.%M.%S");
}

}  // namespace lobegraph
