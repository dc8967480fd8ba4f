#include <algorithm>
#include <cmath>
#include <utility>

#include "acquisition/rotator/LineCutter.h"
#include "acquisition/rotator/RotatorControl.h"
#include "acquisition/rotator/RotatorLines.h"
#include "fuzz/Targets.h"

namespace lobegraph::fuzz {
namespace {

/// A process that tells what the input says, in pieces of one size.
class ToldByInput final : public RotatorPipe {
 public:
  ToldByInput(std::string_view input, std::size_t piece)
      : input_(input), piece_(std::max<std::size_t>(piece, 1)) {}

  bool Start() override { return true; }
  void Send(std::string_view lines) override {
    LineCutter cutter(kLongestRotatorLine);
    cutter.Take(lines);
    while (const auto line = cutter.Next()) Promise(OrderIn(*line).has_value(), "what is sent is an order");
  }
  std::optional<std::string> Receive() override {
    if (input_.empty()) return std::nullopt;
    const std::string_view piece = input_.substr(0, piece_);
    input_.remove_prefix(piece.size());
    return std::string(piece);
  }
  void Kill() override {}
  void Leave() override {}
  void LeaveStopping(const RotatorChoice&) override {}
  bool Over() const { return input_.empty(); }

 private:
  std::string_view input_;
  std::size_t piece_;
};

bool Printable(const std::string& text) {
  return std::none_of(text.begin(), text.end(), [](unsigned char c) { return c < ' ' || c == 127; });
}

void CheckModels(std::string_view input) {
  LineCutter cutter(kLongestRotatorLine);
  cutter.Take(input);
  while (const auto line = cutter.Next()) {
    const auto news = NewsIn(*line);
    if (!news) continue;
    if (const auto* model = std::get_if<RotatorModel>(&*news))
      Promise(Printable(model->Maker) && Printable(model->Name), "names are printable");
    // Numbers are told with the decimals that count, so a text of a text stays as it is.
    const auto again = NewsIn(TextOf(*news));
    Promise(again && TextOf(*again) == TextOf(*news), "news can be told on");
  }
}

}  // namespace

/// The first byte is the size of the pieces in which the process tells the rest.
void TryRotatorNews(std::string_view input) {
  if (input.empty()) return;
  const std::string_view told = input.substr(1);
  ToldByInput pipe(told, static_cast<unsigned char>(input[0]));
  RotatorControl control(pipe);
  double nowS = 1000;
  control.Connect({1, "", 0}, nowS);
  control.Consent().Tick(true);
  control.Consent().Answer(true);
  while (!pipe.Over()) {
    control.Poll(nowS += 0.05);
    static_cast<void>(control.Turn(TurnSense::Right));
    const RotatorState state = control.State();
    Promise(!state.Words.empty() && Printable(state.Words), "a state is told in words");
    Promise(!state.BearingDeg || (*state.BearingDeg >= 0 && *state.BearingDeg < 360),
            "a bearing is in a turn");
  }
  double lastS = 0;
  for (const RotatorPosition& position : control.TakePositions()) {
    Promise(std::isfinite(position.Deg) && position.TimeS > lastS, "positions follow each other");
    lastS = position.TimeS;
  }
  CheckModels(told);
}

/// What the process is told, however it is torn.
void TryRotatorOrders(std::string_view input) {
  LineCutter cutter(kLongestRotatorLine);
  for (std::size_t at = 0; at < input.size(); at += 7) cutter.Take(input.substr(at, 7));
  while (const auto line = cutter.Next()) {
    const auto order = OrderIn(*line);
    if (!order) continue;
    const auto again = OrderIn(TextOf(*order));
    Promise(again && TextOf(*again) == TextOf(*order), "an order can be told on");
    Promise(std::isfinite(order->Deg), "a bearing is a number");
  }
}

}  // namespace lobegraph::fuzz
