#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <mutex>
#include <span>
#include <vector>

#include "acquisition/sound/SoundDevice.h"

namespace lobegraph {

/// The looping buffer between the capture thread and the window's thread. Chunks of any size are cut into
/// blocks of half the ring, which overwrite the two halves in turn; a half is only ever seen whole. However
/// long nobody looks, at most one notice per half waits, so a window that comes back after seconds analyses
/// the two newest blocks, never a backlog.
class SoundRing {
 public:
  /// @param wake called on the capture thread when notices begin to wait; once, until TakeNotices.
  SoundRing(const CaptureBuffer& buffer, std::function<void()> wake);

  /// Capture thread: takes what the sound system delivered.
  void Write(std::span<const std::byte> chunk);
  /// Capture was stopped: the stop marker's notice waits from now on.
  void NoteStopped();
  /// The handles of the events that fired since the last call, the one of the newest block last.
  std::vector<std::int32_t> TakeNotices();
  /// Copies bytes of the ring. @throws RunTimeError 9 (Subscript out of range) beyond its end.
  void Read(std::int32_t offset, std::span<std::byte> out) const;

 private:
  void StoreBlock();
  void Notify(std::int32_t eventHandle);

  const NotifyPositions positions_;
  const std::function<void()> wake_;
  std::vector<std::byte> block_;  ///< the block being cut: capture thread only
  std::size_t blockFill_ = 0;
  bool secondHalfIsNext_ = false;
  mutable std::mutex mutex_;  ///< guards what follows
  std::vector<std::byte> ring_;
  std::vector<std::int32_t> notices_;
};

}  // namespace lobegraph
