#include "acquisition/rotator/RotatorControl.h"

#include "acquisition/rotator/RotatorWords.h"
#include "processing/bearing/Angles.h"

namespace lobegraph {
namespace {

constexpr double kMotionShownS = 1.5;
constexpr double kTroubledStopS = 3;  ///< a stop that is owed for so long needs the user

}  // namespace

void RotatorControl::Connect(const RotatorChoice& choice, double nowS, int pollMs) {
  Disconnect();
  choice_ = choice;
  nowS_ = nowS;
  link_.Connect(choice, pollMs);
  Poll(nowS);
}

void RotatorControl::Disconnect() {
  link_.Disconnect();
  watchdog_.End();
  position_.reset();
  movedS_.reset();
  stopOwedS_.reset();
  positions_.clear();
  trouble_.clear();
}

void RotatorControl::Poll(double nowS) {
  nowS_ = nowS;
  link_.Poll(nowS);
  for (const RotatorPosition& position : link_.TakePositions()) Take(position);
  LookAfter();
  if (!link_.StopOwed())
    stopOwedS_.reset();
  else if (!stopOwedS_)
    stopOwedS_ = nowS_;
}

void RotatorControl::Take(const RotatorPosition& position) {
  heardS_ = nowS_;
  if (position_ && position_->Deg != position.Deg) movedS_ = nowS_;
  position_ = position;
  if (positions_.size() == kMostKept)
    positions_.erase(positions_.begin(), positions_.begin() + kMostKept / 2);
  positions_.push_back(position);
  watchdog_.Heard(position, nowS_);
}

void RotatorControl::LookAfter() {
  if (const auto refusal = link_.TakeRefusal(); refusal && watchdog_.Driving())
    StopFor("The antenna was not set in motion. " + SentenceOf(*refusal));
  if (link_.TakeStoppedItself()) {
    watchdog_.Stop(nowS_);
    trouble_ = "The antenna was stopped: the program did not answer for a second.";
  }
  if (watchdog_.Driving() && link_.StopOwed())
    StopFor(
        "The connection to the rotator broke while the antenna turned. It is stopped as soon as it is "
        "reached; if it still turns, stop it at the control box.");
  if (const auto alarm = watchdog_.Check(nowS_)) StopFor(SentenceOf(*alarm));
}

void RotatorControl::StopFor(const std::string& trouble) {
  Stop();
  trouble_ = trouble;
}

void RotatorControl::Stop() {
  if (!link_.Wanted()) return;
  link_.Stop();
  watchdog_.Stop(nowS_);
}

std::string RotatorControl::WhyNot(bool able) const {
  if (!link_.Wanted()) return "No rotator is connected.";
  if (!link_.Open()) return SentenceOf(link_.Fault().value_or(RotatorFault::NobodyThere));
  if (!consent_.Granted()) return "The antenna may not be driven by this program.";
  if (!Can().Stop) return "This rotator cannot be stopped by a command, so it is not set in motion.";
  if (link_.StopOwed()) return "The antenna is being stopped.";
  return able ? std::string() : SentenceOf(RotatorFault::CannotDoThat);
}

std::string RotatorControl::Begin(const DriveOrder& order, bool sent) {
  if (!sent) return SentenceOf(RotatorFault::NobodyThere);
  trouble_.clear();
  watchdog_.Begin(order, Can(), position_ ? std::optional(position_->Deg) : std::nullopt, nowS_);
  return {};
}

std::string RotatorControl::GoTo(double deg) {
  const auto target = InRange(deg, Can(), position_ ? position_->Deg : deg);
  if (!target && link_.Open()) return SentenceOf(RotatorFault::OutOfRange);
  return GoToExactly(target.value_or(deg));
}

std::string RotatorControl::GoToExactly(double deg) {
  if (std::string why = WhyNot(Can().GoTo && Can().Position); !why.empty()) return why;
  if (deg < Can().LowestDeg || deg > Can().HighestDeg) return SentenceOf(RotatorFault::OutOfRange);
  return Begin({DriveOrder::Kind::GoTo, deg}, link_.GoTo(deg));
}

std::string RotatorControl::Turn(TurnSense sense) {
  if (std::string why = WhyNot(Can().Turn); !why.empty()) return why;
  const auto kind = sense == TurnSense::Left ? DriveOrder::Kind::Left : DriveOrder::Kind::Right;
  return Begin({kind}, link_.Turn(sense));
}

std::string RotatorControl::Park() {
  if (std::string why = WhyNot(Can().Park); !why.empty()) return why;
  return Begin({DriveOrder::Kind::Park}, link_.Park());
}

bool RotatorControl::AnswersFresh() const {
  return position_ && nowS_ - heardS_ <= RotatorWatchdog::kNoAnswersS;
}

bool RotatorControl::Moving() const {
  return watchdog_.Driving() || watchdog_.Stopping() || link_.StopOwed() ||
         (movedS_ && nowS_ - *movedS_ < kMotionShownS);
}

RotatorState RotatorControl::State() const {
  using Phase = RotatorState::Phase;
  RotatorState state;
  if (!link_.Wanted()) {
    state.Words = "Not connected.";
    return state;
  }
  if (position_) state.BearingDeg = WithinTurn(position_->Deg);
  state.Fresh = AnswersFresh();
  if (watchdog_.Driving())
    state.Is = Phase::Driven;
  else if (link_.StopOwed() || watchdog_.Stopping())
    state.Is = Phase::Stopping;
  else if (!link_.Open() || !state.Fresh)
    state.Is = position_ || link_.Fault() ? Phase::Lost : Phase::Connecting;
  else
    state.Is = Moving() ? Phase::Moves : Phase::Stands;
  state.Trouble = !trouble_.empty() || state.Is == Phase::Lost;
  state.Words = Words();
  return state;
}

std::string RotatorControl::Words() const {
  if (stopOwedS_ && nowS_ - *stopOwedS_ > kTroubledStopS)
    return "The rotator cannot be reached to stop it: stop it at the control box.";
  if (!trouble_.empty()) return trouble_;
  if (watchdog_.Driving()) return WordsOf(watchdog_.Order());
  if (link_.StopOwed() || watchdog_.Stopping()) return "Stops.";
  if (!link_.Open()) return link_.Fault() ? SentenceOf(*link_.Fault()) : "Connecting.";
  if (!AnswersFresh()) return position_ ? SentenceOf(RotatorFault::NoAnswer) : "Connecting.";
  return Moving() ? "Moves." : "Stands.";
}

}  // namespace lobegraph
