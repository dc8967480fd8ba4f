#include <algorithm>

#include "acquisition/sound/SoundLevel.h"
#include "acquisition/sound/SoundRing.h"
#include "data/base/RunTimeError.h"
#include "fuzz/Targets.h"

namespace lobegraph::fuzz {
namespace {

constexpr std::int32_t kFirstHalf = 1, kSecondHalf = 2, kStopped = 3;

CaptureBuffer BufferOf(std::int32_t halfBytes) {
  CaptureBuffer buffer;
  buffer.HalfBytes = halfBytes;
  buffer.BufferBytes = 2 * halfBytes;
  buffer.Positions = {{{1, kSecondHalf}, {halfBytes, kFirstHalf}, {-1, kStopped}}};
  return buffer;
}

void PromiseLevel(std::span<const std::byte> block) {
  SoundLevelState state;
  AnalyseSoundBlock(block, state);
  Promise(state.SoundLevel >= 0 && state.SoundLevel <= 1024, "a level lies in its range");
}

void TryFormat(std::span<const std::byte> bytes) {
  std::int32_t samples = 0;
  std::int16_t bits = 0, channels = 0;
  if (bytes.size() < 8) return;
  std::copy_n(bytes.begin(), 4, std::as_writable_bytes(std::span(&samples, 1)).begin());
  std::copy_n(bytes.begin() + 4, 2, std::as_writable_bytes(std::span(&bits, 1)).begin());
  std::copy_n(bytes.begin() + 6, 2, std::as_writable_bytes(std::span(&channels, 1)).begin());
  try {
    HalfBufferBytes(PcmFormat(samples, bits, channels), samples);
  } catch (const RunTimeError&) {
    return;
  }
}

}  // namespace

/// The first byte is the size of half the ring, the second that of a chunk; the rest is sound.
void TrySoundBlocks(std::string_view input) {
  if (input.size() < 2) return;
  const std::int32_t half = 1 + static_cast<unsigned char>(input[0]);
  const std::size_t chunk = 1 + static_cast<unsigned char>(input[1]);
  auto sound = std::as_bytes(std::span(input.substr(2)));
  TryFormat(sound);
  PromiseLevel(sound);
  SoundRing ring(BufferOf(half), [] {});
  std::vector<std::byte> block(static_cast<std::size_t>(half));
  for (; !sound.empty(); sound = sound.subspan(std::min(chunk, sound.size()))) {
    ring.Write(sound.first(std::min(chunk, sound.size())));
    const std::vector<std::int32_t> notices = ring.TakeNotices();
    Promise(notices.size() <= 2, "at most one notice waits for each half");
    for (const std::int32_t notice : notices) {
      ring.Read(notice == kFirstHalf ? 0 : half, block);
      PromiseLevel(block);
    }
  }
}

}  // namespace lobegraph::fuzz
