#include "meter/Options.h"

#include <CLI/CLI.hpp>
#include <sstream>

namespace lobegraph {
namespace {

constexpr const char* kAbout =
    "Publishes the signal strength of a radio as an external meter program. The radio is asked\n"
    "through hamlib's rigctld, or a software receiver that answers \"l STRENGTH\" as it does.\n"
    "In Lobegraph choose the last input, LP-100-VCP or TarvenMeter or GaugeBridge.";
constexpr const char* kExamples =
    "Examples:\n"
    "  rigctld -m 3073 -r /dev/ttyUSB0 &\n"
    "  lobegraph-meter\n"
    "      finds the strongest level in a first slow turn of 60 seconds, then publishes\n"
    "  lobegraph-meter --reference 40\n"
    "      S9+40 dB is the strongest: published as -5 dBm, the plot's range is 60 dB below 0\n"
    "  lobegraph-meter --reference 40 --calibration my-radio.txt\n"
    "      each line of the file: dB reported, true dB";

ParsedMeterCommandLine Ended(const CLI::App& app, const CLI::ParseError& reason) {
  std::ostringstream output, complaint;
  ParsedMeterCommandLine parsed;
  parsed.ExitCode = app.exit(reason, output, complaint);
  parsed.Output = output.str();
  parsed.Complaint = complaint.str();
  return parsed;
}

}  // namespace

ParsedMeterCommandLine ParseMeterCommandLine(int argc, const char* const* argv) {
  MeterOptions options;
  CLI::App app(kAbout, "lobegraph-meter");
  app.footer(kExamples);
  app.add_option("--host", options.Host, "Where the daemon runs")->capture_default_str();
  app.add_option("--port", options.Port, "Its TCP port")->check(CLI::Range(1, 65535))->capture_default_str();
  app.add_option("--interval", options.IntervalMs, "Milliseconds between two questions")
      ->check(CLI::Range(1, 10'000))
      ->capture_default_str();
  app.add_option("--limit", options.LimitMs, "Milliseconds that an answer may take")
      ->check(CLI::Range(10, 60'000))
      ->capture_default_str();
  auto* reference =
      app.add_option("--reference", options.ReferenceDb,
                     "Strength, dB over S9 as the radio reports it, that is published as -5 dBm");
  app.add_option("--find", options.FindSeconds, "Seconds of the first turn that finds the strongest level")
      ->check(CLI::Range(0.1, 3600.0))
      ->excludes(reference)
      ->capture_default_str();
  app.add_option("--calibration", options.CalibrationFile,
                 "File of reported and true dB, a smooth rising curve between its lines")
      ->check(CLI::ExistingFile);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& reason) {
    return Ended(app, reason);
  }
  return {options, 0, "", ""};
}

}  // namespace lobegraph
