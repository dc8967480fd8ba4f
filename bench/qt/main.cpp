#include <unistd.h>

#include <cmath>
#include <iostream>
#include <memory>
#include <string>

#include "bench/FilePattern.h"
#include "bench/MeterPlayer.h"
#include "bench/Options.h"
#include "bench/Tone.h"
#include "bench/qt/PulsePlayer.h"
#include "bench/receiver/ReceiverSound.h"
#include "bench/rotator/HeardAt.h"
#include "bench/rotator/Mast.h"

namespace {

using namespace lobegraph;

VoltagePattern ChosenPattern(const BenchOptions& options) {
  if (options.File.empty()) return AntennaNamed(options.Antenna).Voltage;
  DiskFiles files;
  return PatternFromFile(files, options.File);
}

/// A line a second; on a terminal the line stays in its place.
class Progress {
 public:
  void Show(const Turn& turn, double seconds) {
    const double wholeSecond = std::floor(seconds);
    if (wholeSecond == shownSecond_) return;
    shownSecond_ = wholeSecond;
    std::cout << (onTerminal_ ? "\r\033[K" : "") << ProgressText(turn, seconds) << (onTerminal_ ? "" : "\n")
              << std::flush;
  }
  void Finish() const {
    if (onTerminal_) std::cout << '\n';
  }

 private:
  bool onTerminal_ = isatty(STDOUT_FILENO) == 1;
  double shownSecond_ = -1;
};

/// None without a rotator: the antenna then turns by the clock.
std::unique_ptr<Mast> MastOf(const BenchOptions& options) {
  return options.Rotator.Any() ? std::make_unique<Mast>(options.Rotator) : nullptr;
}

void PlayMeter(const BenchOptions& options) {
  Turn turn(options.Turn, ChosenPattern(options));
  const auto mast = MastOf(options);
  if (mast) turn.Follow([&](double) { return mast->DirectionAt(MonotonicS()); });
  Progress progress;
  MeterPlayer(options, turn, std::cout, [&](double seconds) { progress.Show(turn, seconds); }).Run();
  progress.Finish();
}

/// @param sound Tone or ReceiverSound
/// @param heard when each second of the sound is heard; what a mast is asked about
template <typename Sound>
void PlaySound(const BenchOptions& options, Turn& turn, Sound& sound, const PlayedFormat& format,
               HeardAt& heard) {
  Progress progress;
  PulsePlayer player(options.Sink, format, [&](std::span<std::int16_t> samples, double heardInS) {
    heard.Sync(sound.Seconds(), MonotonicS() + heardInS);
    sound.Fill(samples);
    if (turn.Over(sound.Seconds())) return false;
    progress.Show(turn, sound.Seconds());
    return true;
  });
  player.Run();
  progress.Finish();
  if (player.Gaps() > 0)
    std::cerr << "lobegraph-bench: the audio had " << player.Gaps() << " gaps, this machine was too busy\n";
}

void Play(const BenchOptions& options) {
  Turn turn(options.Turn, ChosenPattern(options));
  const auto mast = MastOf(options);
  HeardAt heard;
  if (mast) turn.Follow([&](double seconds) { return mast->DirectionAt(heard.MonotonicS(seconds)); });
  const auto level = [&turn](double seconds) { return turn.Level(seconds); };
  ReceiverSettings clean;
  clean.Seed = options.Receiver.Seed;
  if (options.Receiver == clean) {
    Tone tone(level);
    return PlaySound(options, turn, tone, {}, heard);
  }
  ReceiverSound sound(options.Receiver, options.Turn.PeakLevel, level);
  PlaySound(
      options, turn, sound,
      {static_cast<std::uint32_t>(sound.SamplesPerSecond()), static_cast<std::uint8_t>(sound.Channels())},
      heard);
}

int Run(int argc, char** argv) {
  const ParsedCommandLine commandLine = ParseCommandLine(argc, argv);
  std::cout << commandLine.Output;
  std::cerr << commandLine.Complaint;
  if (!commandLine.Options) return commandLine.ExitCode;
  if (commandLine.Options->List)
    std::cout << ListText(commandLine.Options->Plain);
  else if (commandLine.Options->Kind != BenchKind::Sound)
    PlayMeter(*commandLine.Options);
  else
    Play(*commandLine.Options);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Run(argc, argv);
  } catch (const RunTimeError& error) {
    std::cerr << "lobegraph-bench: " << error.Description() << (error.Detail().empty() ? "" : ": ")
              << error.Detail() << '\n';
  } catch (const std::exception& error) {
    std::cerr << "lobegraph-bench: " << error.what() << '\n';
  }
  return 1;
}
