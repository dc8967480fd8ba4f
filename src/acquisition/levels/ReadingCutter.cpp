#include "acquisition/levels/ReadingCutter.h"

#include <algorithm>

namespace lobegraph {

void ReadingCutter::Hear(std::span<const std::int16_t> interleaved) {
  buffer_.insert(buffer_.end(), interleaved.begin(), interleaved.end());
  Forget();
}

void ReadingCutter::HearGap(std::int64_t frames) {
  gaps_.push_back({Heard(), Heard() + frames});
  buffer_.insert(buffer_.end(), static_cast<std::size_t>(frames) * 2, 0);
  Forget();
}

std::int64_t ReadingCutter::Open(std::int64_t at) {
  openAt_ = std::max({at, start_, used_});
  return *openAt_;
}

void ReadingCutter::Close(std::int64_t at) {
  if (!openAt_) return;
  const std::int64_t end = std::max(at, *openAt_);
  closed_.push_back({*openAt_, end});
  used_ = end;
  openAt_ = end;
}

void ReadingCutter::CloseLast(std::int64_t at) {
  Close(at);
  openAt_.reset();
}

std::optional<SoundStretch> ReadingCutter::Next() {
  if (closed_.empty() || closed_.front().To > Heard()) return std::nullopt;
  SoundStretch reading = Copy(closed_.front());
  closed_.pop_front();
  Forget();
  return reading;
}

SoundStretch ReadingCutter::Newest(std::int64_t frames) const {
  return Copy({std::max(Heard() - frames, start_), Heard()});
}

SoundStretch ReadingCutter::Copy(const Range& range) const {
  SoundStretch stretch;
  stretch.First = range.From;
  const auto sample = [this](std::int64_t frame) { return buffer_.begin() + (frame - start_) * 2; };
  stretch.Samples.assign(sample(range.From), sample(range.To));
  for (const Range& gap : gaps_) {
    const std::int64_t shared = std::min(gap.To, range.To) - std::max(gap.From, range.From);
    stretch.Missing += static_cast<std::int32_t>(std::max<std::int64_t>(0, shared));
  }
  return stretch;
}

/// What no reading needs any more goes, but for the history that a live level and a reading still to be
/// opened want.
void ReadingCutter::Forget() {
  std::int64_t keep = Heard() - history_;
  if (openAt_) keep = std::min(keep, *openAt_);
  if (!closed_.empty()) keep = std::min(keep, closed_.front().From);
  if (keep <= start_) return;
  buffer_.erase(buffer_.begin(), buffer_.begin() + (keep - start_) * 2);
  start_ = keep;
  while (!gaps_.empty() && gaps_.front().To <= start_) gaps_.pop_front();
}

}  // namespace lobegraph
