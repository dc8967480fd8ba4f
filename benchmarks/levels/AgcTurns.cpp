// Whether AGC is told rightly: turns of an antenna through a receiver with AGC off and on, the decay fast and
// slow, from the sound to the verdict. Prints a line a case: how many turns of how many were told rightly,
// wrongly, not at all.
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "acquisition/levels/ReadingMeter.h"
#include "bench/Antenna.h"
#include "bench/Turn.h"
#include "bench/receiver/ReceiverSound.h"
#include "processing/quality/SourceChecks.h"

namespace {

using namespace lobegraph;

constexpr int kReadings = 360;
constexpr double kSecondsPerTurn = 20.0;

struct Case {
  const char* Antenna;
  double SnrDb;
  std::optional<std::pair<double, double>> Agc;
};

QualityItem TurnOf(const Case& turned, std::uint64_t seed) {
  TurnSettings settings;
  settings.SecondsPerTurn = kSecondsPerTurn;
  settings.PeakLevel = 300;
  Turn turn(settings, AntennaNamed(turned.Antenna).Voltage);
  ReceiverSettings receiver;
  receiver.ToneHz = 700.0 + static_cast<double>(seed % 300);
  receiver.NoiseHz = {300.0, 2700.0};
  receiver.SnrDb = turned.SnrDb;
  receiver.AgcSeconds = turned.Agc;
  receiver.Seed = 2 * seed + 1;
  ReceiverSound sound(receiver, settings.PeakLevel,
                      [&turn](double seconds) { return turn.TrueLevel(seconds); });
  LevelChoice choice;
  choice.Method = LevelMethod::Tone;
  choice.LastHz = receiver.ToneHz;
  ReadingMeter meter(choice, receiver.SamplesPerSecond);
  TurnReadings readings;
  SoundStretch stretch;
  stretch.Samples.resize(2 *
                         static_cast<std::size_t>(kSecondsPerTurn * receiver.SamplesPerSecond / kReadings));
  for (int i = 0; i < kReadings; ++i) {
    sound.Fill(stretch.Samples);
    const MeasuredReading reading = meter.Measure(stretch);
    readings.Levels.push_back(reading.Level);
    readings.Details.push_back(reading.Detail);
  }
  return CheckAgc(readings);
}

void Count(const Case& turned, int turns) {
  int right = 0;
  int wrong = 0;
  for (int i = 1; i <= turns; ++i) {
    const QualityItem item = TurnOf(turned, static_cast<std::uint64_t>(i));
    if (item.Found == Verdict::NotKnown) continue;
    const bool saidOn = item.Found == Verdict::Bad;
    ++(saidOn == turned.Agc.has_value() ? right : wrong);
  }
  std::printf("%-8s snr %2.0f dB  AGC %-13s  right %3d  wrong %3d  cannot tell %3d\n", turned.Antenna,
              turned.SnrDb,
              !turned.Agc                ? "off"
              : turned.Agc->second > 1.0 ? "on, slow"
                                         : "on, fast",
              right, wrong, turns - right - wrong);
}

}  // namespace

int main(int argc, char** argv) {
  const int turns = argc > 1 ? std::atoi(argv[1]) : 100;
  for (const char* antenna : {"array", "beam", "omni"})
    for (const double snr : {25.0, 35.0, 45.0}) {
      Count({antenna, snr, std::nullopt}, turns);
      Count({antenna, snr, std::pair(0.005, 0.2)}, turns);
      Count({antenna, snr, std::pair(0.01, 3.0)}, turns);
    }
}
