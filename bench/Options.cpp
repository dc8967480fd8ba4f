#include "bench/Options.h"

#include <CLI/CLI.hpp>
#include <iomanip>
#include <sstream>

#include "bench/receiver/ReceiverOptions.h"
#include "data/base/Numbers.h"

namespace lobegraph {
namespace {

constexpr const char* kAbout =
    "Plays an antenna on its rotator: audio whose level follows the antenna's pattern\n"
    "while it turns, into a sink of the sound server. Lobegraph hears the sink's monitor.";
constexpr const char* kExamples =
    "Examples:\n"
    "  lobegraph-bench --antenna beam --seconds 36\n"
    "      a 3-element beam, one turn in 36 seconds, again and again until Ctrl+C\n"
    "  lobegraph-bench --antenna dipole --seconds 60 --turns 1 --seconds-of-silence-before 5\n"
    "      one turn after 5 seconds of silence: tries automatic start and stop\n"
    "  lobegraph-bench --file mine.lbg --noise 0.5 --spikes 4\n"
    "      a saved pattern with noise of 0.5 dB and four spikes a turn\n"
    "  lobegraph-bench --as tarven --com 5 --antenna beam --seconds 60\n"
    "      a TARVEN meter that Lobegraph finds at COM 5\n"
    "  lobegraph-bench --rotator 4533 --swing 20 --run-up 2 --signal 211\n"
    "      turns as hamlib's NET rotctl at 127.0.0.1:4533 says, unevenly\n"
    "  lobegraph-bench --antenna array --noise-band 300-2700 --snr 20 --tone 800 --agc\n"
    "      a weak tone in the noise of a receiver whose AGC is on\n"
    "  lobegraph-bench --list\n"
    "      the antennas and their true beamwidth\n"
    "Nobody needs to hear it: play into a null sink (pactl load-module module-null-sink\n"
    "sink_name=rx) with --sink rx, and make rx.monitor the default input.";
constexpr double kLongestTurnSeconds = 86400;
constexpr double kMostNoiseDb = 20;

void AddAntennaOptions(CLI::App& app, BenchOptions& options) {
  std::vector<std::string> names;
  for (const Antenna& antenna : Antennas()) names.emplace_back(antenna.Name);
  auto* antenna = app.add_option("--antenna", options.Antenna, "Antenna to turn")
                      ->check(CLI::IsMember(names))
                      ->capture_default_str();
  app.add_option("--file", options.File, "Play the readings of a pattern file (.lbg), first reading first")
      ->excludes(antenna);
  app.add_flag("--list", options.List,
               "Name the antennas and their true -3 dB beamwidth in degrees, then end");
  app.add_flag("--plain", options.Plain, "With --list: one antenna a line, name, tab, beamwidth")
      ->needs("--list");
}

void AddTurnOptions(CLI::App& app, TurnSettings& turn) {
  app.add_option("--seconds", turn.SecondsPerTurn, "Duration of one turn in seconds")
      ->check(CLI::Range(1.0, kLongestTurnSeconds))
      ->capture_default_str();
  app.add_option("--turns", turn.Turns, "Number of turns (default: goes on until stopped)")
      ->check(CLI::Range(1, 1'000'000));
  app.add_option("--start-bearing", turn.StartBearingDeg,
                 "Where the antenna looks at first, degrees from the source, turning clockwise "
                 "(default: 180, its back to the source; with --file: 0)")
      ->check(CLI::Range(-360.0, 360.0));
  app.add_option("--peak", turn.PeakLevel, "Level in the main direction; 1000 is full scale")
      ->check(CLI::Range(1.0, 1023.0))
      ->capture_default_str();
  app.add_option("--seconds-of-silence-before", turn.SilenceSeconds, "Silence before the first turn")
      ->check(CLI::Range(0.0, kLongestTurnSeconds))
      ->capture_default_str();
}

void AddDisturbanceOptions(CLI::App& app, TurnSettings& turn) {
  app.add_option("--noise", turn.NoiseDb, "Fluctuation of the level, rms in dB, drawn anew every 10 ms")
      ->check(CLI::Range(0.0, kMostNoiseDb))
      ->capture_default_str();
  app.add_option(
         "--spikes", turn.SpikesPerTurn,
         "Spikes per turn: each lasts a 360th of the turn and is 200 levels up (down near full scale)")
      ->check(CLI::Range(0, Turn::kMostSpikes))
      ->capture_default_str();
  app.add_option("--seed", turn.Seed, "The same seed gives the same noise and spikes")->capture_default_str();
}

void AddMeterOptions(CLI::App& app, BenchOptions& options) {
  const std::map<std::string, BenchKind> kinds = {{"sound", BenchKind::Sound},
                                                  {"tarven", BenchKind::Tarven},
                                                  {"roska", BenchKind::Roska},
                                                  {"program", BenchKind::Program},
                                                  {"rotator", BenchKind::Rotator}};
  auto* as =
      app.add_option(
             "--as", options.Kind,
             "What to be: sound (default), tarven or roska (a serial meter on a pseudo-terminal, "
             "whose path is printed), program (an external meter program), rotator (nothing but the rotator)")
          ->transform(CLI::CheckedTransformer(kinds, CLI::ignore_case));
  app.add_option("--com", options.Com, "COM number that Lobegraph shall know the serial meter by")
      ->check(CLI::Range(1, 32))
      ->needs(as);
  app.add_option(
         "--pulses-to", options.PulsesTo,
         "Turn in 360 steps with a trigger pulse each, on the RTS line of this serial port (wire it to "
         "CTS); what is no serial port gets lines H and L")
      ->needs(as);
}

ParsedCommandLine Ended(const CLI::App& app, const CLI::ParseError& reason) {
  std::ostringstream output, complaint;
  ParsedCommandLine parsed;
  parsed.ExitCode = app.exit(reason, output, complaint);
  parsed.Output = output.str();
  parsed.Complaint = complaint.str();
  return parsed;
}

}  // namespace

ParsedCommandLine ParseCommandLine(int argc, const char* const* argv) {
  BenchOptions options;
  CLI::App app(kAbout, "lobegraph-bench");
  app.footer(kExamples);
  app.add_option("--sink", options.Sink, "Sink to play into (default: the sound server's default sink)");
  AddAntennaOptions(app, options);
  AddTurnOptions(app, options.Turn);
  AddDisturbanceOptions(app, options.Turn);
  AddMeterOptions(app, options);
  AddRotatorOptions(app, options.Rotator);
  AddReceiverOptions(app, options.Receiver);
  try {
    app.parse(argc, argv);
    if (options.Kind == BenchKind::Rotator && !options.Rotator.Serve)
      throw CLI::ValidationError("--as rotator needs --rotator PORT");
  } catch (const CLI::ParseError& reason) {
    return Ended(app, reason);
  }
  const bool firstReadingFirst = !options.File.empty() && app.count("--start-bearing") == 0;
  if (firstReadingFirst) options.Turn.StartBearingDeg = 0;
  options.Receiver.Seed = options.Turn.Seed;
  return {options, 0, "", ""};
}

std::string ListText(bool plain) {
  std::ostringstream text;
  if (!plain) text << "Antenna    Beamwidth  Description\n";
  for (const Antenna& antenna : Antennas()) {
    const std::string width = FixedText(BeamwidthDeg(antenna.Voltage), 2);
    if (plain)
      text << antenna.Name << '\t' << width << '\n';
    else
      text << std::left << std::setw(11) << antenna.Name << std::right << std::setw(9) << width << "  "
           << antenna.Description << '\n';
  }
  return text.str();
}

std::string ProgressText(const Turn& turn, double seconds) {
  if (turn.Silent(seconds)) return "silence before the first turn";
  if (turn.Follows())
    return "signal at " + FixedText(turn.BearingDeg(seconds), 1) + " from the antenna  level " +
           FixedText(turn.TrueLevel(seconds), 1);
  return "turn " + std::to_string(turn.TurnsDone(seconds) + 1) + "  bearing " +
         FixedText(turn.BearingDeg(seconds), 1) + "  level " + FixedText(turn.TrueLevel(seconds), 1);
}

}  // namespace lobegraph
