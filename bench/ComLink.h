#pragma once

#include <string>

#include "settings/SettingsStore.h"

namespace lobegraph {

/// A COM number that stands for a terminal of this program, as long as the program lives: a link of its own,
/// whose end goes with the process, so that not even after a kill the number leads to a terminal of somebody
/// else. At its end the number means again what it meant before.
class ComLink {
 public:
  /// @param terminal an open handle of this process
  /// @throws std::runtime_error when no link can be made
  ComLink(SettingsStore& store, int number, int terminal);
  ~ComLink();
  ComLink(const ComLink&) = delete;
  ComLink& operator=(const ComLink&) = delete;

 private:
  SettingsStore& store_;
  std::string key_;
  std::string before_;  ///< empty: the number had no device of its own
  std::string folder_;
  std::string link_;
};

}  // namespace lobegraph
