#include "cli/Progress.h"

#include <string>
#include <utility>

namespace lobegraph {
namespace {

constexpr std::chrono::milliseconds kPatience{1000};
constexpr std::chrono::milliseconds kRefresh{100};
constexpr std::size_t kBarWidth = 40;

}  // namespace

Progress::Progress(std::ostream& terminal, bool onTerminal, std::size_t total, Clock clock)
    : terminal_(terminal),
      onTerminal_(onTerminal),
      total_(total),
      clock_(std::move(clock)),
      next_(clock_() + kPatience) {}

void Progress::Show(std::size_t done) {
  if (!onTerminal_ || clock_() < next_) return;
  next_ = clock_() + kRefresh;
  const std::size_t filled = total_ == 0 ? kBarWidth : kBarWidth * done / total_;
  terminal_ << "\r\033[K[" << std::string(filled, '#') << std::string(kBarWidth - filled, ' ') << "] " << done
            << " of " << total_ << std::flush;
  shown_ = true;
}

void Progress::Hide() {
  if (shown_) terminal_ << "\r\033[K" << std::flush;
  shown_ = false;
}

}  // namespace lobegraph
