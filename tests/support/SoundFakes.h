#pragma once

#include <functional>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "acquisition/core/Clock.h"
#include "acquisition/sound/SoundDevice.h"
#include "acquisition/sound/SoundRing.h"

namespace lobegraph::test {

/// Moves only when something sleeps; a wait that never ends is a failing test, not a hang.
class SleepingClock final : public Clock {
 public:
  std::int32_t timeGetTime() override {
    if (++reads > kMostReads) throw std::logic_error("time is read for ever");
    return now;
  }
  void Sleep(int milliseconds) override { Advance(milliseconds); }
  void SleepToNextTick() override { Advance(1), ++ticks; }

  std::int32_t now = 0;
  int ticks = 0;
  int reads = 0;

 private:
  static constexpr int kMostReads = 1'000'000;
  void Advance(int ms) {
    now = static_cast<std::int32_t>(static_cast<std::uint32_t>(now) + static_cast<std::uint32_t>(ms));
  }
};

class ScriptedPump final : public EventPump {
 public:
  void ProcessPendingEvents() override {
    ++yields;
    if (atYield) atYield(yields);
  }
  int yields = 0;
  std::function<void(int)> atYield;
};

/// A sound system in memory; the test delivers the audio.
class FakeDevice final : public CaptureDevice {
 public:
  std::string FirstDevice() override {
    calls += "first ";
    if (!firstError.empty()) throw CaptureError(firstError);
    return defaultDevice;
  }
  void Open(const std::string& identifier, const CaptureBuffer& buffer, CaptureListener& listener) override {
    calls += "open:" + identifier + " ";
    if (!openError.empty()) throw CaptureError(openError);
    description = "Fake microphone";
    ring = std::make_unique<SoundRing>(buffer, [] {});
    listener_ = &listener;
  }
  void Start() override {
    calls += "start ";
    if (!startError.empty()) throw CaptureError(startError);
  }
  void Stop() noexcept override { calls += "stop "; }
  void Close() noexcept override {
    calls += "close ";
    ring.reset();
  }
  void Read(std::int32_t offset, std::span<std::byte> out) const override { ring->Read(offset, out); }
  std::string Description() const override { return description; }

  /// Hands the waiting notices to the listener, as a yield of the window does.
  void Deliver() {
    for (const std::int32_t handle : ring->TakeNotices()) listener_->DirectXEvent8_DXCallback(handle);
  }
  void Fail(const std::string& text) { listener_->CaptureFailed(text); }

  std::string calls, firstError, openError, startError, defaultDevice = "mic";
  std::string description = "Fake microphone";
  std::unique_ptr<SoundRing> ring;

 private:
  CaptureListener* listener_ = nullptr;
};

/// The bytes of samples, as the sound system delivers them.
inline std::vector<std::byte> BytesOf(const std::vector<std::int16_t>& samples) {
  const auto bytes = std::as_bytes(std::span(samples));
  return {bytes.begin(), bytes.end()};
}

/// One 10 ms block of 44.1 kHz stereo, every sample the same.
inline std::vector<std::byte> BlockOf(std::int16_t sample) {
  return BytesOf(std::vector<std::int16_t>(882, sample));
}

}  // namespace lobegraph::test
