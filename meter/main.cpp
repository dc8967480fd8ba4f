#include <csignal>
#include <iostream>
#include <stdexcept>

#include "data/calibration/CalibrationText.h"
#include "meter/Options.h"
#include "settings/FileSettingsStore.h"

namespace {

using namespace lobegraph;

// A signal handler reaches nothing but what is at namespace scope.
volatile std::sig_atomic_t ended = 0;
void OnSignal(int) { ended = 1; }

CalibrationTable CalibrationOf(const std::string& path) {
  if (path.empty()) return {};
  DiskFiles files;
  CalibrationFile file = LoadCalibration(files, path);
  if (!file.Outcome.Table) throw std::runtime_error(path + ": " + file.Outcome.Refusal);
  return *file.Outcome.Table;
}

int Run(int argc, char** argv) {
  const ParsedMeterCommandLine commandLine = ParseMeterCommandLine(argc, argv);
  std::cout << commandLine.Output;
  std::cerr << commandLine.Complaint;
  if (!commandLine.Options) return commandLine.ExitCode;
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) static_cast<void>(std::signal(number, OnSignal));
  // One who no longer reads what it prints must not end it with the last value standing as if it were of now.
  static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
  FileSettingsStore store;
  RadioMeter(*commandLine.Options, CalibrationOf(commandLine.Options->CalibrationFile), store, std::cout, [] {
    return ended != 0;
  }).Run();
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Run(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "lobegraph-meter: " << error.what() << '\n';
  }
  return 1;
}
