#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <ostream>

namespace lobegraph {

/// A bar on a terminal for work that lasts longer than a second; silent before, and silent on anything that
/// is no terminal.
class Progress {
 public:
  using Clock = std::function<std::chrono::steady_clock::time_point()>;

  Progress(std::ostream& terminal, bool onTerminal, std::size_t total,
           Clock clock = std::chrono::steady_clock::now);
  /// Takes the bar away.
  ~Progress() { Hide(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  /// @param done of the total
  void Show(std::size_t done);
  /// Clears the line for another text; the next Show draws the bar again.
  void Hide();

 private:
  std::ostream& terminal_;
  bool onTerminal_;
  std::size_t total_;
  Clock clock_;
  std::chrono::steady_clock::time_point next_;
  bool shown_ = false;
};

}  // namespace lobegraph
