#include "acquisition/sound/SoundRing.h"

#include <algorithm>
#include <utility>

#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

enum Position : std::size_t { kSecondHalfFull, kFirstHalfFull, kStopped };

}  // namespace

SoundRing::SoundRing(const CaptureBuffer& buffer, std::function<void()> wake)
    : positions_(buffer.Positions),
      wake_(std::move(wake)),
      block_(static_cast<std::size_t>(buffer.HalfBytes)),
      ring_(static_cast<std::size_t>(buffer.BufferBytes)) {}

void SoundRing::Write(std::span<const std::byte> chunk) {
  while (!chunk.empty()) {
    const std::size_t taken = std::min(chunk.size(), block_.size() - blockFill_);
    std::ranges::copy(chunk.first(taken), block_.begin() + static_cast<std::ptrdiff_t>(blockFill_));
    blockFill_ += taken;
    chunk = chunk.subspan(taken);
    if (blockFill_ == block_.size()) StoreBlock();
  }
}

void SoundRing::StoreBlock() {
  const std::size_t start = secondHalfIsNext_ ? block_.size() : 0;
  {
    const std::scoped_lock lock(mutex_);
    std::ranges::copy(block_, ring_.begin() + static_cast<std::ptrdiff_t>(start));
  }
  Notify(positions_[secondHalfIsNext_ ? kSecondHalfFull : kFirstHalfFull].EventHandle);
  secondHalfIsNext_ = !secondHalfIsNext_;
  blockFill_ = 0;
}

void SoundRing::NoteStopped() { Notify(positions_[kStopped].EventHandle); }

void SoundRing::Notify(std::int32_t eventHandle) {
  bool nobodyWoken = false;
  {
    const std::scoped_lock lock(mutex_);
    nobodyWoken = notices_.empty();
    std::erase(notices_, eventHandle);
    notices_.push_back(eventHandle);
  }
  if (nobodyWoken) wake_();
}

std::vector<std::int32_t> SoundRing::TakeNotices() {
  const std::scoped_lock lock(mutex_);
  return std::exchange(notices_, {});
}

void SoundRing::Read(std::int32_t offset, std::span<std::byte> out) const {
  const std::scoped_lock lock(mutex_);
  const auto start = static_cast<std::size_t>(offset);
  if (offset < 0 || start > ring_.size() || out.size() > ring_.size() - start)
    throw RunTimeError(fault::kSubscript);
  std::copy_n(ring_.begin() + offset, out.size(), out.begin());
}

}  // namespace lobegraph
