#include "bench/receiver/ReceiverOptions.h"

#include <CLI/CLI.hpp>
#include <map>
#include <string>
#include <vector>

namespace lobegraph {
namespace {

constexpr const char* kGroup = "The receiver between antenna and sound card";
constexpr double kHighestHz = 20'000;
constexpr std::pair<double, double> kAgcSeconds{0.005, 0.5};
constexpr double kClipDb = 6;

using Numbers = std::vector<double>;
using Texts = std::vector<std::string>;

/// What follows an option that may stand alone: the parser hands over one empty text then.
Numbers NumbersOf(const char* name, const Texts& texts) {
  Numbers numbers;
  for (const std::string& text : texts) {
    double number = 0;
    if (text.empty()) continue;
    if (!CLI::detail::lexical_cast(text, number)) throw CLI::ConversionError(text, name);
    numbers.push_back(number);
  }
  return numbers;
}

CLI::Option* AddPair(CLI::App& app, const char* name, const char* about,
                     std::optional<std::pair<double, double>>& kept) {
  return app
      .add_option_function<Numbers>(
          name,
          [&kept](const Numbers& numbers) {
            kept = {numbers.at(0), numbers.at(1)};
          },
          about)
      ->expected(2)
      ->group(kGroup);
}

/// "300-2700".
std::string TakeBand(const std::string& text, ReceiverSettings& settings) {
  const auto dash = text.find('-');
  double from = 0;
  double to = 0;
  const bool numbers = dash != std::string::npos && CLI::detail::lexical_cast(text.substr(0, dash), from) &&
                       CLI::detail::lexical_cast(text.substr(dash + 1), to);
  if (!numbers || from < 10 || to <= from || to > kHighestHz) return "a band is LOW-HIGH in hertz, 300-2700";
  settings.NoiseHz = {from, to};
  return {};
}

void AddSource(CLI::App& app, ReceiverSettings& settings) {
  app.add_option("--tone", settings.ToneHz, "The tone in hertz")
      ->check(CLI::Range(20.0, kHighestHz))
      ->capture_default_str()
      ->group(kGroup);
  app.add_option("--drift", settings.DriftHzPerSecond, "By how many hertz a second the tone drifts")
      ->check(CLI::Range(-100.0, 100.0))
      ->group(kGroup);
  app.add_option("--keyed", settings.WordsPerMinute,
                 "A beacon in Morse code, by words a minute, instead of a carrier")
      ->check(CLI::Range(1.0, 60.0))
      ->group(kGroup);
  AddPair(app, "--second-tone", "Another tone: hertz, and dB over the first", settings.SecondTone);
  AddPair(app, "--fade", "The source fades: by how many dB, once in how many seconds", settings.Fade);
}

void AddNoise(CLI::App& app, ReceiverSettings& settings) {
  app.add_option_function<std::string>(
         "--noise-band",
         [&settings](const std::string& text) {
           const std::string wrong = TakeBand(text, settings);
           if (!wrong.empty()) throw CLI::ValidationError("--noise-band", wrong);
         },
         "Noise in the band that the receiver lets through, LOW-HIGH in hertz (300-2700)")
      ->group(kGroup);
  app.add_option("--snr", settings.SnrDb,
                 "Tone in the main direction over that noise, dB of power within the band")
      ->check(CLI::Range(-40.0, 120.0))
      ->needs("--noise-band")
      ->capture_default_str()
      ->group(kGroup);
  app.add_option_function<Texts>(
         "--agc",
         [&settings](const Texts& texts) {
           const Numbers numbers = NumbersOf("--agc", texts);
           if (numbers.empty()) settings.AgcSeconds = kAgcSeconds;
           if (numbers.size() == 1) throw CLI::ValidationError("--agc", "attack and decay, two numbers");
           if (numbers.size() == 2) settings.AgcSeconds = {numbers[0], numbers[1]};
           if (settings.AgcSeconds && !(settings.AgcSeconds->first > 0 && settings.AgcSeconds->second > 0))
             throw CLI::ValidationError("--agc", "times are above 0");
         },
         "The receiver's AGC is on: attack and decay in seconds (default 0.005 0.5)")
      ->expected(0, 2)
      ->group(kGroup);
}

void AddSoundCard(CLI::App& app, ReceiverSettings& settings) {
  app.add_option_function<Texts>(
         "--clip",
         [&settings](const Texts& texts) {
           const Numbers numbers = NumbersOf("--clip", texts);
           settings.ClipDb = numbers.empty() ? kClipDb : numbers[0];
         },
         "The sound card is overdriven: the main direction by how many dB (default 6)")
      ->expected(0, 1)
      ->group(kGroup);
  app.add_option("--offset", settings.Offset, "Offset of the sound card, sample steps")
      ->check(CLI::Range(-32768.0, 32767.0))
      ->group(kGroup);
  const std::map<std::string, RightChannel> channels = {
      {"same", RightChannel::Same}, {"silent", RightChannel::Silent}, {"reference", RightChannel::Reference}};
  auto* right =
      app.add_option("--right", settings.Right,
                     "What the right channel carries: same (default), silent, reference (a fixed antenna)")
          ->transform(CLI::CheckedTransformer(channels, CLI::ignore_case))
          ->group(kGroup);
  app.add_flag("--mono", settings.Mono, "One channel only")->excludes(right)->group(kGroup);
  app.add_option("--rate", settings.SamplesPerSecond, "Samples a second")
      ->check(CLI::Range(4000, 192'000))
      ->capture_default_str()
      ->group(kGroup);
}

}  // namespace

void AddReceiverOptions(CLI::App& app, ReceiverSettings& settings) {
  AddSource(app, settings);
  AddNoise(app, settings);
  AddSoundCard(app, settings);
}

}  // namespace lobegraph
