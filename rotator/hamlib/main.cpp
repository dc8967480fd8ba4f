#include <sys/signalfd.h>
#include <unistd.h>

#include <csignal>
#include <iostream>
#include <span>
#include <string>

#include "data/base/Numbers.h"
#include "rotator/Session.h"
#include "rotator/hamlib/HamlibRotator.h"
#include "rotator/hamlib/StopOnly.h"

namespace {

using namespace lobegraph;

constexpr const char* kUsage =
    "lobegraph-rotator talks to a rotator through hamlib for the programs that start it: lines in, lines\n"
    "out (docs/rotator-protocol.md). It stops the antenna by itself when nothing is heard any more.\n"
    "  lobegraph-rotator\n"
    "  lobegraph-rotator --stop MODEL BAUD [PORT]   stop a rotator, then end\n"
    "  lobegraph-rotator --version\n";

/// Readable when the process is asked to end; in every thread the signals themselves are held back.
int EndSignals() {
  sigset_t ends;
  sigemptyset(&ends);
  for (const int number : {SIGTERM, SIGINT, SIGHUP}) sigaddset(&ends, number);
  sigprocmask(SIG_BLOCK, &ends, nullptr);
  static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
  return signalfd(-1, &ends, SFD_CLOEXEC | SFD_NONBLOCK);
}

int Serve() {
  HamlibRotator rotator;
  Session session(rotator, STDIN_FILENO, STDOUT_FILENO, EndSignals(), BecomeStopOnly);
  const bool stands = session.Run();
  // A call may still be on that needs no more waiting for.
  _exit(stands ? 0 : 1);
}

int StopAsTold(std::span<char*> arguments) {
  RotatorChoice choice;
  choice.Model = static_cast<int>(LeadingNumber(arguments[0]));
  choice.Baud = static_cast<int>(LeadingNumber(arguments[1]));
  if (arguments.size() > 2) choice.Port = arguments[2];
  return StopOnly(choice) ? 0 : 1;
}

int Run(std::span<char*> arguments) {
  if (arguments.empty()) return Serve();
  const std::string first = arguments[0];
  if (first == "--stop" && (arguments.size() == 3 || arguments.size() == 4))
    return StopAsTold(arguments.subspan(1));
  if (first == "--version") {
    std::cout << "lobegraph-rotator " LOBEGRAPH_VERSION "\n";
    return 0;
  }
  (first == "--help" ? std::cout : std::cerr) << kUsage;
  return first == "--help" ? 0 : 2;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Run(std::span(argv, static_cast<std::size_t>(argc)).subspan(1));
  } catch (const std::exception& error) {
    std::cerr << "lobegraph-rotator: " << error.what() << '\n';
  }
  return 1;
}
