#include "bench/MeterPlayer.h"

#include <chrono>
#include <csignal>
#include <thread>
#include <utility>

namespace lobegraph {
namespace {

constexpr std::chrono::milliseconds kMeterInterval{4};
constexpr std::chrono::milliseconds kProgramInterval{10};

// A signal handler reaches nothing but what is at namespace scope.
volatile std::sig_atomic_t ended = 0;
void OnSignal(int) { ended = 1; }

}  // namespace

MeterPlayer::MeterPlayer(const BenchOptions& options, Turn& turn, std::ostream& output,
                         std::function<void(double)> shown)
    : options_(options), turn_(turn), output_(output), shown_(std::move(shown)), steps_(options.Turn) {}

void MeterPlayer::Run() {
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) static_cast<void>(std::signal(number, OnSignal));
  static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
  Begin();
  using Clock = std::chrono::steady_clock;
  const auto start = Clock::now();
  const auto interval = options_.Kind == BenchKind::Program ? kProgramInterval : kMeterInterval;
  double seconds = 0;
  auto last = start;
  for (auto next = start; ended == 0; next += interval) {
    std::this_thread::sleep_until(next);
    const auto now = Clock::now();
    const double elapsed = std::chrono::duration<double>(now - std::exchange(last, now)).count();
    seconds = pulses_ ? steps_.Next(seconds, elapsed) : seconds + elapsed;
    if (turn_.Over(seconds)) return;
    Play(seconds);
  }
}

void MeterPlayer::Begin() {
  if (!options_.PulsesTo.empty()) pulses_.emplace(options_.PulsesTo);
  if (options_.Kind == BenchKind::Program) {
    program_.emplace(store_);
    return;
  }
  if (options_.Kind == BenchKind::Rotator) return;
  terminal_.emplace();
  output_ << "meter on " << terminal_->Path() << std::endl;
  if (options_.Com) com_.emplace(store_, *options_.Com, terminal_->Handle());
}

void MeterPlayer::Play(double seconds) {
  const double level = turn_.Level(pulses_ ? steps_.HeldSince(seconds) : seconds);
  if (program_) program_->Publish(ProgramReading(level));
  if (terminal_) {
    terminal_->Send(MeterText(options_.Kind, level));
    if (terminal_->Received().find("*c") != std::string::npos)
      output_ << "calibrate command received" << std::endl;
  }
  if (pulses_) pulses_->Set(steps_.PulseHigh(seconds));
  shown_(seconds);
}

}  // namespace lobegraph
