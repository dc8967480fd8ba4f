#include "acquisition/rotator/RotatorLink.h"

#include <type_traits>

namespace lobegraph {
namespace {

using Kind = RotatorOrder::Kind;

constexpr double kFutureS = 0.5;  ///< a position stamped later than this from now is none

}  // namespace

void RotatorLink::Connect(const RotatorChoice& choice, int pollMs) {
  Disconnect();
  choice_ = choice;
  pollMs_ = pollMs;
  can_ = {};
  tryAgainS_ = 0;
}

void RotatorLink::Disconnect() {
  if (!choice_) return;
  const bool moving = driven_ || stopOwed_;
  if (moving && !(running_ && open_ && waitingS_ < kSilentS))
    pipe_.LeaveStopping(*choice_);
  else
    pipe_.Leave();
  choice_.reset();
  running_ = open_ = driven_ = stopOwed_ = false;
  opening_ = stopping_ = moving_ = {};
  fault_.reset();
}

void RotatorLink::Poll(double nowS) {
  nowS_ = nowS;
  if (!choice_) return;
  if (!running_ && nowS_ >= tryAgainS_) StartProcess();
  if (!running_) return;
  Hear();
  if (running_ && Hung()) Lose(RotatorFault::NoAnswer);
  if (running_) SendWhatIsDue();
}

void RotatorLink::StartProcess() {
  tryAgainS_ = nowS_ + kTryAgainS;
  lines_ = LineCutter(kLongestRotatorLine);
  running_ = pipe_.Start();
  waitingS_ = 0;
  lastHeardS_ = nowS_;
  if (running_) {
    tryAgainS_ = nowS_;
  } else {
    fault_ = RotatorFault::Inside;
  }
}

/// Opening first, then the stop that is owed; an idle line carries the sign of life.
void RotatorLink::SendWhatIsDue() {
  const bool mayTry = nowS_ >= tryAgainS_;
  if (!open_ && !opening_ && mayTry) opening_ = SendNumbered({.What = Kind::Open, .Choice = *choice_});
  if (open_ && stopOwed_ && !stopping_ && mayTry) stopping_ = SendNumbered({.What = Kind::Stop});
  if (nowS_ - lastSentS_ >= kHeartbeatS) Send({});
}

RotatorLink::Pending RotatorLink::SendNumbered(RotatorOrder order) {
  order.Number = ++lastNumber_;
  Send(order);
  return Sent{order.Number, nowS_};
}

void RotatorLink::Send(const RotatorOrder& order) {
  pipe_.Send(TextOf(order) + "\n");
  lastSentS_ = nowS_;
}

bool RotatorLink::GoTo(double deg) { return SendMove({.What = Kind::GoTo, .Deg = deg}); }
bool RotatorLink::Turn(TurnSense sense) {
  return SendMove({.What = sense == TurnSense::Left ? Kind::Left : Kind::Right});
}
bool RotatorLink::Park() { return SendMove({.What = Kind::Park}); }

bool RotatorLink::SendMove(const RotatorOrder& order) {
  if (!open_ || stopOwed_) return false;
  driven_ = true;
  moving_ = SendNumbered(order);
  return true;
}

void RotatorLink::Stop() {
  if (!choice_) return;
  stopOwed_ = true;
  moving_.reset();
  if (open_) stopping_ = SendNumbered({.What = Kind::Stop});
}

void RotatorLink::Hear() {
  const std::optional<std::string> bytes = pipe_.Receive();
  if (!bytes) return Lose(RotatorFault::Inside);
  lines_.Take(*bytes);
  while (const auto line = lines_.Next()) {
    const auto news = NewsIn(*line);
    if (!news) continue;
    lastHeardS_ = nowS_;
    Take(*news);
  }
}

void RotatorLink::Take(const RotatorNews& news) {
  std::visit(
      [this](const auto& told) {
        using Told = std::decay_t<decltype(told)>;
        if constexpr (!std::is_same_v<Told, told::Waiting>) waitingS_ = 0;
        if constexpr (std::is_same_v<Told, told::Waiting>) waitingS_ = told.Seconds;
        if constexpr (std::is_same_v<Told, RotatorAbilities>) can_ = told;
        if constexpr (std::is_same_v<Told, told::Done>) TakeDone(told.Number);
        if constexpr (std::is_same_v<Told, told::Failed>) TakeFailed(told);
        if constexpr (std::is_same_v<Told, RotatorPosition>) TakePosition(told);
        if constexpr (std::is_same_v<Told, told::NoPosition>) TakeNoPosition(told.Why);
        if constexpr (std::is_same_v<Told, told::StoppedItself>) {
          driven_ = false;
          stoppedItself_ = true;
        }
      },
      news);
}

void RotatorLink::TakeDone(int number) {
  if (opening_ && opening_->Number == number) {
    opening_.reset();
    open_ = true;
    lastPositionS_ = nowS_;
    Send({.What = Kind::Every, .Ms = pollMs_});
  } else if (stopping_ && stopping_->Number == number) {
    stopping_.reset();
    stopOwed_ = driven_ = false;
  } else if (moving_ && moving_->Number == number) {
    moving_.reset();
  }
}

void RotatorLink::TakeFailed(const told::Failed& failed) {
  if (opening_ && opening_->Number == failed.Number) {
    CloseUntilTriedAgain(failed.Why);
  } else if (stopping_ && stopping_->Number == failed.Number) {
    stopping_.reset();
    tryAgainS_ = nowS_ + kTryAgainS;
  } else if (moving_ && moving_->Number == failed.Number) {
    moving_.reset();
    refusal_ = failed.Why;
  }
}

void RotatorLink::TakePosition(const RotatorPosition& position) {
  if (!open_ || position.TimeS <= lastStampS_ || position.TimeS > nowS_ + kFutureS) return;
  lastStampS_ = position.TimeS;
  fault_.reset();
  lastPositionS_ = nowS_;
  positions_.push_back(position);
}

void RotatorLink::TakeNoPosition(RotatorFault why) {
  if (open_ && nowS_ - lastPositionS_ > kSilentS) CloseUntilTriedAgain(why);
}

bool RotatorLink::Hung() const {
  const auto late = [this](const Pending& sent, double limitS) {
    return sent && nowS_ - sent->TimeS > limitS;
  };
  if (opening_) return late(opening_, kOpeningS);
  return late(stopping_, kHungS) || late(moving_, kHungS) || waitingS_ > kHungS ||
         (open_ && nowS_ - lastHeardS_ > kHungS);
}

/// A process that was lost stopped nothing: what it had set in motion is stopped by the next one.
void RotatorLink::Lose(RotatorFault why) {
  pipe_.Kill();
  running_ = false;
  stopOwed_ = stopOwed_ || driven_;
  CloseUntilTriedAgain(why);
}

void RotatorLink::CloseUntilTriedAgain(RotatorFault why) {
  fault_ = why;
  if (moving_) refusal_ = why;
  open_ = false;
  opening_ = stopping_ = moving_ = {};
  tryAgainS_ = nowS_ + kTryAgainS;
}

}  // namespace lobegraph
