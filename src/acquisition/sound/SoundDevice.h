#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>

namespace lobegraph {

/// Uncompressed samples, channels interleaved.
struct WaveFormat {
  std::int16_t FormatTag = 1;  ///< 1: PCM
  std::int16_t Channels = 0;
  std::int32_t SamplesPerSecond = 0;
  std::int16_t BitsPerSample = 0;
  std::int16_t BlockAlign = 0;  ///< bytes of one sample of all channels
  std::int32_t AverageBytesPerSecond = 0;
};

/// @throws RunTimeError 6 (Overflow) when bits x channels leaves 16 bits, or bytes per second 32 bits.
WaveFormat PcmFormat(std::int32_t samplesPerSecond, std::int16_t bitsPerSample, std::int16_t channels);

/// Bytes of one notification block: the wish, or 10 ms of audio for a wish below 1, cut to whole samples.
/// @throws RunTimeError 11 (Division by zero) for a format whose samples have no bytes, 5 when not one sample
/// fits.
std::int32_t HalfBufferBytes(const WaveFormat& format, std::int32_t wishedBytes);

/// A place in the ring and the event that tells when capture has passed it.
struct NotifyPosition {
  std::int32_t Offset = 0;  ///< bytes; 1: the ring wrapped; half: the first half is full; -1: capture stopped
  std::int32_t EventHandle = 0;
};
using NotifyPositions = std::array<NotifyPosition, 3>;

/// A ring of two halves that capture fills in turn.
struct CaptureBuffer {
  WaveFormat Format;
  std::int32_t HalfBytes = 0;
  std::int32_t BufferBytes = 0;  ///< 2 x HalfBytes
  NotifyPositions Positions;     ///< in the order second half full, first half full, stopped
  bool FollowsMoves =
      false;  ///< another source in the place of the opened one is captured; else it is a failure
};

/// Says in the words of the sound system what is wrong.
class CaptureError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Hears of the capture, on the window's thread and inside yields only.
class CaptureListener {
 public:
  virtual ~CaptureListener() = default;
  virtual void DirectXEvent8_DXCallback(std::int32_t eventHandle) = 0;
  /// Capture ended without being asked to: the sound server or the source has gone.
  virtual void CaptureFailed(const std::string& errorText) = 0;
};

/// The sound system as capture needs it. Used from the window's thread; no call takes longer than about 2
/// seconds.
class CaptureDevice {
 public:
  virtual ~CaptureDevice() = default;
  /// Identifier of the first enumerated device: the one that the user chose as default input, asked for
  /// afresh.
  /// @throws CaptureError
  virtual std::string FirstDevice() = 0;
  /// Prepares capture; no notice reaches the listener before Start, none after Close.
  /// @throws CaptureError
  virtual void Open(const std::string& identifier, const CaptureBuffer& buffer,
                    CaptureListener& listener) = 0;
  /// @throws CaptureError
  virtual void Start() = 0;
  virtual void Stop() noexcept = 0;
  virtual void Close() noexcept = 0;
  /// Copies a part of the ring.
  virtual void Read(std::int32_t offset, std::span<std::byte> out) const = 0;
  /// What people call the source that is captured ("Monitor of Null Output"); empty when none was opened yet.
  virtual std::string Description() const = 0;
};

}  // namespace lobegraph
