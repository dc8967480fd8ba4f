// Measures recorded sound reading by reading, as a turn does, for scripts that compute the same in another
// way. Sound: 16-bit samples, left and right in turn, 44.1 kHz, from standard input. One line a reading:
// first frame, level, spread, noise, clipped samples, tone.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "acquisition/levels/ReadingMeter.h"

namespace {

using namespace lobegraph;

constexpr double kSamplesPerSecond = 44100.0;

void Print(const MeasuredReading& reading) {
  const ReadingDetail& detail = reading.Detail;
  std::printf("%lld %.6f %.6f %.6f %d %.4f\n", static_cast<long long>(reading.First), double{reading.Level},
              double{detail.SpreadDb.value_or(-1.0F)}, double{detail.NoiseLevel.value_or(-1.0F)},
              detail.Clipped, double{detail.ToneHz.value_or(-1.0F)});
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) {
    std::fprintf(stderr, "usage: lobegraph_read_levels METHOD FRAMES_A_READING [TONE_HZ] <sound\n");
    return 2;
  }
  LevelChoice choice;
  choice.Method = LevelMethodOf(argv[1]).Method;
  if (argc > 3) choice.FixedHz = std::atof(argv[3]);
  ReadingMeter meter(choice, kSamplesPerSecond);
  SoundStretch sound;
  sound.Samples.resize(2 * static_cast<std::size_t>(std::atol(argv[2])));
  while (std::fread(sound.Samples.data(), sizeof(std::int16_t), sound.Samples.size(), stdin) ==
         sound.Samples.size()) {
    Print(meter.Measure(sound));
    sound.First = sound.End();
  }
  return 0;
}
