#include "acquisition/rotator/RotatorLines.h"

#include <algorithm>
#include <array>

#include "acquisition/rotator/LineWords.h"
#include "data/base/Numbers.h"

namespace lobegraph {
namespace {

using Kind = RotatorOrder::Kind;
using Reached = RotatorModel::Reached;

constexpr double kFarthestDeg = 1080;
constexpr double kLatestS = 1e12;
constexpr int kSlowestPollMs = 60'000;

template <typename Value>
struct Name {
  Value Of;
  std::string_view Word;
};
constexpr std::array<Name<Kind>, 10> kOrders{{{Kind::Alive, "alive"},
                                              {Kind::List, "list"},
                                              {Kind::Open, "open"},
                                              {Kind::Every, "every"},
                                              {Kind::GoTo, "goto"},
                                              {Kind::Left, "left"},
                                              {Kind::Right, "right"},
                                              {Kind::Stop, "stop"},
                                              {Kind::Park, "park"},
                                              {Kind::Close, "close"}}};
constexpr std::array<Name<Reached>, 4> kReached{{{Reached::Directly, "directly"},
                                                 {Reached::Serial, "serial"},
                                                 {Reached::Network, "network"},
                                                 {Reached::Otherwise, "otherwise"}}};
constexpr std::array<Name<bool RotatorAbilities::*>, 5> kAbilities{{{&RotatorAbilities::Position, "position"},
                                                                    {&RotatorAbilities::GoTo, "goto"},
                                                                    {&RotatorAbilities::Turn, "turn"},
                                                                    {&RotatorAbilities::Stop, "stop"},
                                                                    {&RotatorAbilities::Park, "park"}}};

template <typename Names, typename Value>
std::string WordIn(const Names& names, Value value) {
  return std::string(
      std::find_if(names.begin(), names.end(), [&](const auto& name) { return name.Of == value; })->Word);
}

template <typename Names>
auto Named(const Names& names, LineWords& words) {
  const std::string_view word = words.Word();
  const auto found =
      std::find_if(names.begin(), names.end(), [&](const auto& name) { return name.Word == word; });
  if (found == names.end()) words.Wrong();
  return found == names.end() ? names.front().Of : found->Of;
}

/// Without what would end the line or be a command to a terminal.
std::string Printable(std::string text) {
  std::erase_if(text, [](unsigned char c) { return c < ' ' || c == 127; });
  return text;
}

struct NewsText {
  std::string operator()(const told::Hello& hello) const { return "hello " + std::to_string(hello.Protocol); }
  std::string operator()(const RotatorModel& model) const {
    return "model " + std::to_string(model.Number) + " " + WordIn(kReached, model.By) + " " +
           Printable(model.Maker) + "\t" + Printable(model.Name);
  }
  std::string operator()(const told::ListEnds&) const { return "list-ends"; }
  std::string operator()(const RotatorAbilities& can) const {
    std::string text = "can " + FixedText(can.LowestDeg, 2) + " " + FixedText(can.HighestDeg, 2);
    for (const auto& ability : kAbilities)
      if (can.*ability.Of) text += " " + std::string(ability.Word);
    return text;
  }
  std::string operator()(const RotatorPosition& position) const {
    return "position " + FixedText(position.TimeS, 6) + " " + FixedText(position.Deg, 3);
  }
  std::string operator()(const told::Done& done) const { return "done " + std::to_string(done.Number); }
  std::string operator()(const told::Failed& failed) const {
    return "failed " + std::to_string(failed.Number) + " " + std::string(WordOf(failed.Why));
  }
  std::string operator()(const told::NoPosition& none) const {
    return "no-position " + std::string(WordOf(none.Why));
  }
  std::string operator()(const told::Waiting& waiting) const {
    return "waiting " + FixedText(waiting.Seconds, 1);
  }
  std::string operator()(const told::StoppedItself&) const { return "stopped-itself"; }
};

RotatorFault FaultIn(LineWords& words) {
  const auto fault = FaultNamed(words.Word());
  if (!fault) words.Wrong();
  return fault.value_or(RotatorFault::Inside);
}

RotatorModel ModelIn(LineWords& words) {
  RotatorModel model;
  model.Number = words.Whole();
  model.By = Named(kReached, words);
  const std::string_view names = words.Rest();
  const std::size_t tab = names.find('\t');
  if (tab == std::string_view::npos) words.Wrong();
  model.Maker = Printable(std::string(names.substr(0, tab)));
  if (tab != std::string_view::npos) model.Name = Printable(std::string(names.substr(tab + 1)));
  return model;
}

RotatorAbilities AbilitiesIn(LineWords& words) {
  RotatorAbilities can;
  can.LowestDeg = words.Number(-kFarthestDeg, kFarthestDeg);
  can.HighestDeg = words.Number(can.LowestDeg, kFarthestDeg);
  while (!words.AtEnd()) can.*Named(kAbilities, words) = true;
  return can;
}

/// By the first word of a line; wrong words are seen afterwards.
std::optional<RotatorNews> NewsOf(std::string_view kind, LineWords& words) {
  if (kind == "hello") return told::Hello{words.Whole()};
  if (kind == "model") return ModelIn(words);
  if (kind == "list-ends") return told::ListEnds{};
  if (kind == "can") return AbilitiesIn(words);
  if (kind == "done") return told::Done{words.Whole()};
  if (kind == "no-position") return told::NoPosition{FaultIn(words)};
  if (kind == "waiting") return told::Waiting{words.Number(0, kLatestS)};
  if (kind == "stopped-itself") return told::StoppedItself{};
  if (kind == "failed") {
    const int number = words.Whole();
    return told::Failed{number, FaultIn(words)};
  }
  if (kind != "position") return std::nullopt;
  const double time = words.Number(0, kLatestS);
  return RotatorPosition{time, words.Number(-kFarthestDeg, kFarthestDeg)};
}

RotatorChoice ChoiceIn(LineWords& words) {
  RotatorChoice choice;
  choice.Model = words.Whole();
  choice.Baud = words.Whole();
  choice.Port = Printable(std::string(words.Rest()));
  return choice;
}

bool Numbered(Kind kind) { return kind != Kind::Alive && kind != Kind::List && kind != Kind::Every; }

}  // namespace

std::string TextOf(const RotatorOrder& order) {
  std::string text = WordIn(kOrders, order.What);
  if (Numbered(order.What)) text += " " + std::to_string(order.Number);
  if (order.What == Kind::Every) text += " " + std::to_string(order.Ms);
  if (order.What == Kind::GoTo) text += " " + FixedText(order.Deg, 2);
  if (order.What != Kind::Open) return text;
  text += " " + std::to_string(order.Choice.Model) + " " + std::to_string(order.Choice.Baud);
  const std::string port = Printable(order.Choice.Port);
  return port.empty() ? text : text + " " + port;
}

std::optional<RotatorOrder> OrderIn(std::string_view line) {
  LineWords words(line);
  RotatorOrder order;
  order.What = Named(kOrders, words);
  if (Numbered(order.What)) order.Number = words.Whole();
  if (order.What == Kind::Every) order.Ms = words.Whole();
  if (order.Ms > kSlowestPollMs) words.Wrong();
  if (order.What == Kind::GoTo) order.Deg = words.Number(-kFarthestDeg, kFarthestDeg);
  if (order.What == Kind::Open) order.Choice = ChoiceIn(words);
  return words.AllWasRight() ? std::optional(order) : std::nullopt;
}

std::string TextOf(const RotatorNews& news) { return std::visit(NewsText{}, news); }

std::optional<RotatorNews> NewsIn(std::string_view line) {
  LineWords words(line);
  const std::string_view kind = words.Word();
  auto news = NewsOf(kind, words);
  return words.AllWasRight() ? news : std::nullopt;
}

}  // namespace lobegraph
