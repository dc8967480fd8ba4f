#include "bench/rotator/RotatorOptions.h"

#include <CLI/CLI.hpp>
#include <stdexcept>

#include "data/base/Numbers.h"
#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

void ReadPlace(std::optional<HostAndPort>& place, const std::string& text) {
  try {
    place = ReadHostAndPort(text);
  } catch (const std::invalid_argument& reason) {
    throw CLI::ValidationError(reason.what());
  }
}

/// "-180..450"
void ReadRange(MotorSettings& motor, const std::string& text) {
  const std::size_t dots = text.find("..");
  try {
    if (dots == std::string::npos) throw RunTimeError(fault::kTypeMismatch);
    motor.LowestDeg = WholeNumberText(text.substr(0, dots));
    motor.HighestDeg = WholeNumberText(text.substr(dots + 2));
  } catch (const RunTimeError&) {
    throw CLI::ValidationError("\"" + text + "\" is no range of bearings such as -180..450");
  }
  if (motor.LowestDeg < -720 || motor.HighestDeg > 720 || motor.LowestDeg >= motor.HighestDeg)
    throw CLI::ValidationError("a range of bearings goes up, from -720 to 720 at most");
}

void AddMotorOptions(CLI::App& app, MotorSettings& motor, CLI::Option* serve) {
  app.add_option("--rotator-speed", motor.DegPerS, "Degrees a second")
      ->check(CLI::Range(0.1, 90.0))
      ->capture_default_str()
      ->needs(serve);
  app.add_option("--run-up", motor.RunUpS, "Seconds from rest to that speed")
      ->check(CLI::Range(0.0, 30.0))
      ->needs(serve);
  app.add_option("--run-down", motor.RunDownS, "Seconds from that speed to rest")
      ->check(CLI::Range(0.0, 30.0))
      ->needs(serve);
  app.add_option_function<double>(
         "--swing", [&motor](double percent) { motor.SwingShare = percent / 100; },
         "Percent by which the speed swings once a turn")
      ->check(CLI::Range(0.0, 90.0))
      ->needs(serve);
  app.add_option_function<std::string>(
         "--range", [&motor](const std::string& text) { ReadRange(motor, text); },
         "Where it can turn, as LOWEST..HIGHEST (default: -180..450)")
      ->needs(serve);
  app.add_option("--rotator-start", motor.StartDeg, "Where it points at first (default: 0)")
      ->check(CLI::Range(-720.0, 720.0))
      ->needs(serve);
  app.add_option("--park", motor.ParkDeg, "Its parking place (default: 0)")
      ->check(CLI::Range(-720.0, 720.0))
      ->needs(serve);
  app.add_option("--stall-at", motor.StallAtDeg, "It comes no farther than this bearing")
      ->check(CLI::Range(-720.0, 720.0))
      ->needs(serve);
  app.add_flag("--reversed", motor.Reversed, "It turns the other way than it is told")->needs(serve);
}

void AddAnswerOptions(CLI::App& app, DaemonSettings& answers, CLI::Option* serve) {
  app.add_option("--resolution", answers.ResolutionDeg, "Degrees in which it tells its bearing")
      ->check(CLI::Range(0.01, 45.0))
      ->capture_default_str()
      ->needs(serve);
  app.add_option_function<double>(
         "--answer-delay", [&answers](double ms) { answers.AnswersLateS = ms / 1000; },
         "Milliseconds that each answer takes")
      ->check(CLI::Range(0.0, 60'000.0))
      ->needs(serve);
  app.add_option_function<double>(
         "--lose", [&answers](double percent) { answers.LostShare = percent / 100; },
         "Percent of answers lost")
      ->check(CLI::Range(0.0, 100.0))
      ->needs(serve);
  app.add_option("--jump-at", answers.JumpAtDeg, "From this bearing on it tells 40 degrees more")
      ->check(CLI::Range(-720.0, 720.0))
      ->needs(serve);
}

}  // namespace

void AddRotatorOptions(CLI::App& app, RotatorOptions& options) {
  auto* serve = app.add_option_function<std::string>(
      "--rotator", [&options](const std::string& text) { ReadPlace(options.Serve, text); },
      "Turn the antenna as the clients of this [HOST:]PORT say, in the language of hamlib's rotctld");
  app.add_option_function<std::string>(
         "--follow-rotator", [&options](const std::string& text) { ReadPlace(options.Follow, text); },
         "Play the antenna of another rotctld, at HOST:PORT")
      ->excludes(serve);
  app.add_option("--signal", options.SignalDeg, "Bearing of the signal, with a rotator (default: 0)")
      ->check(CLI::Range(-360.0, 360.0));
  AddMotorOptions(app, options.Motor, serve);
  AddAnswerOptions(app, options.Answers, serve);
}

}  // namespace lobegraph
