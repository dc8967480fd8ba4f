#include "bench/rotator/Daemon.h"

#include <cmath>
#include <sstream>

#include "data/base/Numbers.h"
#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

constexpr const char* kDone = "RPRT 0\n";
constexpr const char* kWrong = "RPRT -1\n";
constexpr const char* kUnknown = "RPRT -4\n";
constexpr int kLeft = 8, kRight = 16;

/// The command, whichever of its names was used, and the numbers behind it.
struct Command {
  std::string Name, Numbers;

  explicit Command(std::string_view line) {
    const std::size_t end = std::min(line.find(' '), line.size());
    Name = line.substr(0, end);
    Numbers = line.substr(std::min(end + 1, line.size()));
  }
  bool Is(std::string_view letter, std::string_view longName) const {
    return Name == letter || Name == longName;
  }
};

std::optional<double> FirstNumber(std::string_view numbers) {
  std::istringstream words{std::string(numbers)};
  std::string word;
  words >> word;
  try {
    return WholeNumberText(word);
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

}  // namespace

std::optional<std::string> Daemon::Answer(std::string_view line, double nowS) {
  if (line.empty()) return std::nullopt;
  std::string answer = Obey(line, nowS);
  if (std::uniform_real_distribution<>(0, 1)(random_) < settings_.LostShare) return std::nullopt;
  return answer;
}

std::string Daemon::Obey(std::string_view line, double nowS) {
  const Command command(line);
  if (command.Is("p", "\\get_pos")) return Position(nowS);
  if (command.Is("P", "\\set_pos")) return GoTo(command.Numbers, nowS);
  if (command.Is("M", "\\move")) return Move(command.Numbers, nowS);
  if (command.Is("_", "\\get_info")) return "lobegraph-bench\n";
  if (command.Name == "\\dump_state") return State();
  if (command.Is("S", "\\stop"))
    motor_.Stop(nowS);
  else if (command.Is("K", "\\park"))
    motor_.Park(nowS);
  else
    return kUnknown;
  return kDone;
}

std::string Daemon::Position(double nowS) {
  double deg = motor_.DegAt(nowS);
  if (settings_.JumpAtDeg && deg >= *settings_.JumpAtDeg) deg += settings_.JumpDeg;
  const double told = std::round(deg / settings_.ResolutionDeg) * settings_.ResolutionDeg;
  return FixedText(told, 2) + "\n0.00\n";
}

std::string Daemon::GoTo(std::string_view numbers, double nowS) {
  const auto deg = FirstNumber(numbers);
  if (!deg || *deg < range_.LowestDeg || *deg > range_.HighestDeg) return kWrong;
  motor_.GoTo(*deg, nowS);
  return kDone;
}

std::string Daemon::Move(std::string_view numbers, double nowS) {
  const auto direction = FirstNumber(numbers);
  if (direction != kLeft && direction != kRight) return kWrong;
  motor_.Turn(direction == kRight, nowS);
  return kDone;
}

/// The version of this list, the model, then what a client asks a rotator for.
std::string Daemon::State() const {
  return "1\n1\nmin_az=" + FixedText(range_.LowestDeg, 6) + "\nmax_az=" + FixedText(range_.HighestDeg, 6) +
         "\nmin_el=0.000000\nmax_el=0.000000\nsouth_zero=0\nrot_type=Az\ndone\n";
}

}  // namespace lobegraph
