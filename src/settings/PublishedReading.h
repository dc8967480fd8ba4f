#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>

#include "settings/SettingsStore.h"

namespace lobegraph {

/// What a meter program publishes in the store: its reading, that it runs, and a beat that tells its readers
/// when it was killed. Says that the program has ended when it ends.
class PublishedReading {
 public:
  using Time = std::chrono::steady_clock::time_point;
  /// A beat is no older than this while the program lives.
  static constexpr std::chrono::milliseconds kBeat{1000};

  /// @param calibrated what is published has been through a calibration: nobody is to apply another one
  explicit PublishedReading(
      SettingsStore& store, bool calibrated = false,
      std::function<Time()> now = [] { return std::chrono::steady_clock::now(); });
  ~PublishedReading() { Retract(); }
  PublishedReading(const PublishedReading&) = delete;
  PublishedReading& operator=(const PublishedReading&) = delete;

  /// Writes what has changed at once, and what has not with the next beat. @param reading dBm, a number as
  /// text
  /// @return false when it does not stand in the store; what stood there before may still stand there
  bool Publish(const std::string& reading);
  /// There is no reading now; an old one must not be taken for one. @return false when that could not be said
  bool Retract();

 private:
  enum class Said { Unknown, Yes, No };  ///< what a former run left behind is unknown
  bool Write(const std::string& reading);

  SettingsStore& store_;
  bool calibrated_;
  std::function<Time()> now_;
  Said active_ = Said::Unknown;
  std::string reading_;
  Time written_;
  std::int64_t beat_;
};

}  // namespace lobegraph
