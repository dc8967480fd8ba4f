#pragma once

#include <QTimer>
#include <functional>
#include <string>

#include "settings/FileSettingsStore.h"

namespace lobegraph {

/// Settings that could not be saved: says so, and tries again until they are.
class SettingsRetry {
 public:
  /// @param say shows a line to the user; false when this is not the moment
  SettingsRetry(FileSettingsStore& store, std::function<bool(const std::string& line)> say);
  /// The last try; what still could not be saved is named on standard error.
  void Finish();

 private:
  void Try();

  FileSettingsStore& store_;
  std::function<bool(const std::string&)> say_;
  QTimer timer_;
  bool said_ = false;
};

}  // namespace lobegraph
