#include "rotator/DeviceThread.h"

#include <algorithm>
#include <chrono>
#include <limits>
#include <utility>

#include "rotator/Time.h"

namespace lobegraph {
namespace {

using Kind = RotatorOrder::Kind;
using Lock = std::unique_lock<std::mutex>;

constexpr double kStopAgainS = 0.5;

bool Moves(const RotatorOrder& order) {
  return order.What == Kind::GoTo || order.What == Kind::Left || order.What == Kind::Right ||
         order.What == Kind::Park;
}

}  // namespace

DeviceThread::DeviceThread(RotatorDevice& device, DeviceOrders::Tell tell)
    : orders_(device, std::move(tell), MonotonicS), thread_([this] { Run(); }) {}

DeviceThread::~DeviceThread() {
  {
    const std::lock_guard lock(mutex_);
    ends_ = true;
  }
  wake_.notify_all();
  thread_.join();
}

void DeviceThread::Give(const RotatorOrder& order) {
  const std::lock_guard lock(mutex_);
  if (order.What == Kind::Stop) std::erase_if(waiting_, Moves);
  if (order.What == Kind::Every) {
    everyS_ = order.Ms / 1000.0;
    nextPositionS_ = MonotonicS();
  } else {
    waiting_.push_back(order);
  }
  wake_.notify_all();
}

void DeviceThread::StopWhatMoves() {
  const std::lock_guard lock(mutex_);
  if (stopWhatMoves_) return;
  const bool moveWaits = std::any_of(waiting_.begin(), waiting_.end(), Moves);
  waiting_.clear();
  stopWhatMoves_ = driven_ || moveWaits;
  nextStopS_ = 0;
  wake_.notify_all();
}

double DeviceThread::CallS() const {
  const std::lock_guard lock(mutex_);
  return callSinceS_ ? MonotonicS() - *callSinceS_ : 0;
}

bool DeviceThread::Driven() const {
  const std::lock_guard lock(mutex_);
  return driven_;
}

std::optional<RotatorChoice> DeviceThread::Choice() const {
  const std::lock_guard lock(mutex_);
  return choice_;
}

void DeviceThread::Run() {
  Lock lock(mutex_);
  while (!ends_) {
    if (DoNext(lock)) continue;
    const auto due = NextDueS();
    if (due)
      wake_.wait_for(lock, std::chrono::duration<double>(std::max(*due - MonotonicS(), 0.0)));
    else
      wake_.wait(lock);
  }
}

/// The stop first, then orders, then a question for the position. False when nothing is due.
bool DeviceThread::DoNext(Lock& lock) {
  const double now = MonotonicS();
  if (stopWhatMoves_ && now >= nextStopS_) {
    bool stands = false;
    Call(lock, [&] { stands = orders_.StopWhatMoves(); });
    stopWhatMoves_ = !stands;
    nextStopS_ = MonotonicS() + kStopAgainS;
  } else if (!waiting_.empty() && !stopWhatMoves_) {
    const RotatorOrder order = waiting_.front();
    waiting_.pop_front();
    if (order.What == Kind::Open) choice_ = order.Choice;
    driven_ = driven_ || Moves(order) || order.What == Kind::Stop;  // known even while the call hangs
    Call(lock, [&] { orders_.Obey(order); });
  } else if (everyS_ > 0 && now >= nextPositionS_) {
    // From the moment it was due: the time that an answer takes does not make the questions fewer.
    nextPositionS_ = std::max(nextPositionS_ + intervals_.Next(everyS_), now);
    Call(lock, [&] { orders_.AskPosition(); });
  } else {
    return false;
  }
  return true;
}

void DeviceThread::Call(Lock& lock, const std::function<void()>& call) {
  callSinceS_ = MonotonicS();
  lock.unlock();
  call();
  lock.lock();
  callSinceS_.reset();
  driven_ = orders_.Driven();
}

std::optional<double> DeviceThread::NextDueS() const {
  const double never = std::numeric_limits<double>::infinity();
  const double due = std::min(stopWhatMoves_ ? nextStopS_ : never, everyS_ > 0 ? nextPositionS_ : never);
  return due < never ? std::optional(due) : std::nullopt;
}

}  // namespace lobegraph
