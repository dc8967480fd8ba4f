#include <cmath>
#include <cstring>
#include <vector>

#include "acquisition/levels/LevelMeter.h"
#include "fuzz/Targets.h"

namespace lobegraph::fuzz {
namespace {

/// Bytes as what happens to a meter: the first ones choose the method, each further one an event, with what
/// follows it as sound.
class Events {
 public:
  explicit Events(std::string_view bytes) : bytes_(bytes) {}

  bool More() const { return !bytes_.empty(); }
  unsigned Byte() {
    if (bytes_.empty()) return 0;
    const auto byte = static_cast<unsigned char>(bytes_.front());
    bytes_.remove_prefix(1);
    return byte;
  }
  std::vector<std::int16_t> Frames(std::size_t count) {
    std::vector<std::int16_t> samples(count * 2);
    const std::size_t given = std::min(bytes_.size(), samples.size() * sizeof(std::int16_t));
    std::memcpy(samples.data(), bytes_.data(), given);
    bytes_.remove_prefix(given);
    return samples;
  }

 private:
  std::string_view bytes_;
};

LevelChoice ChoiceOf(Events& events) {
  LevelChoice choice;
  choice.Method = static_cast<LevelMethod>(events.Byte() % 4);
  choice.Channel = static_cast<SoundChannel>(events.Byte() % 4);
  const unsigned flags = events.Byte();
  choice.Keyed = (flags & 1U) != 0;
  if ((flags & 2U) != 0) choice.FixedHz = 20.0 * events.Byte();
  if ((flags & 4U) != 0) choice.LastHz = 20.0 * events.Byte();
  return choice;
}

}  // namespace

void TrySoundReadings(std::string_view input) {
  Events events(input);
  const LevelChoice choice = ChoiceOf(events);
  LevelMeter meter(choice, 8000.0, 0.02);
  std::int64_t nowMs = 1000;
  std::int64_t next = -1;
  while (events.More()) {
    const unsigned event = events.Byte();
    nowMs += event / 8;
    if (event % 8 == 0) {
      meter.Open(nowMs);
      next = -1;
    }
    if (event % 8 == 1) meter.Close(nowMs);
    if (event % 8 == 2) meter.CloseLast(nowMs);
    if (event % 8 == 3) meter.HearGap(event, nowMs);
    if (event % 8 > 3) meter.Hear(events.Frames(event), nowMs);
    for (const MeasuredReading& reading : meter.Take()) {
      Promise(std::isfinite(reading.Level) && reading.Level >= 1.0F, "a level is a finite number from 1 on");
      Promise(reading.First >= next, "no sample is used twice");
      next = reading.First + reading.Detail.Samples;
    }
    Promise(std::isfinite(meter.Status().Level), "the live level is a finite number");
  }
}

}  // namespace lobegraph::fuzz
