#include "rotator/Session.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <utility>

#include "rotator/Time.h"

namespace lobegraph {
namespace {

constexpr int kLookEveryMs = 100;
constexpr double kTellOfACallS = 0.5;
constexpr std::size_t kMostUntold = 1U << 16U;  ///< a user that does not read is not waited for

}  // namespace

Session::Session(RotatorDevice& device, int in, int out, int ends, Rescue rescue)
    : in_(in),
      out_(out),
      ends_(ends),
      wake_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
      rescue_(std::move(rescue)),
      lines_(kLongestRotatorLine),
      heardS_(MonotonicAsleepS()),
      thread_(device, [this](const RotatorNews& news) { Say(news); }) {}

Session::~Session() { close(wake_); }

bool Session::Run() {
  Say(told::Hello{kRotatorProtocol});
  while (true) {
    Await();
    WatchTheUser();
    TellOfACall();
    Flush();
    if (leaving_ && StoppedLast()) return !thread_.Driven();
    RescueFromHang();
  }
}

void Session::Say(const RotatorNews& news) {
  const std::string line = TextOf(news) + "\n";
  {
    const std::lock_guard lock(mutex_);
    if (toTell_.size() + line.size() > kMostUntold) return;
    toTell_ += line;
  }
  eventfd_write(wake_, 1);
}

void Session::Flush() {
  const std::lock_guard lock(mutex_);
  while (!toTell_.empty()) {
    ssize_t sent = send(out_, toTell_.data(), toTell_.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
    if (sent < 0 && errno == ENOTSOCK) sent = write(out_, toTell_.data(), toTell_.size());
    if (sent <= 0) break;
    toTell_.erase(0, static_cast<std::size_t>(sent));
  }
}

void Session::Await() {
  std::array<pollfd, 3> awaited{
      {{wake_, POLLIN, 0}, {leaving_ ? -1 : in_, POLLIN, 0}, {leaving_ ? -1 : ends_, POLLIN, 0}}};
  if (poll(awaited.data(), awaited.size(), kLookEveryMs) <= 0) return;
  eventfd_t count = 0;
  if (awaited[0].revents != 0) eventfd_read(wake_, &count);
  if (awaited[1].revents != 0) Hear();
  if (awaited[2].revents != 0) leaving_ = true;
}

void Session::Hear() {
  std::array<char, 4096> bytes{};
  const ssize_t count = read(in_, bytes.data(), bytes.size());
  if (count < 0 && (errno == EINTR || errno == EAGAIN)) return;
  if (count <= 0) leaving_ = true;
  if (count <= 0) return;
  lines_.Take({bytes.data(), static_cast<std::size_t>(count)});
  while (const auto line = lines_.Next()) {
    const auto order = OrderIn(*line);
    if (!order) continue;
    heardS_ = MonotonicAsleepS();
    if (order->What != RotatorOrder::Kind::Alive) thread_.Give(*order);
  }
}

/// A user that hangs cannot press stop either. That the computer slept counts as silence too.
void Session::WatchTheUser() {
  const bool silent = MonotonicAsleepS() - heardS_ > kHeartbeatS;
  if (!leaving_ && silent && thread_.Driven() && !stopsItself_) {
    stopsItself_ = true;
    thread_.StopWhatMoves();
  }
  if (!stopsItself_ || thread_.Driven()) return;
  stopsItself_ = false;
  Say(told::StoppedItself{});
}

void Session::TellOfACall() {
  const double now = MonotonicS(), call = thread_.CallS();
  if (call < kTellOfACallS || now - toldOfCallS_ < kTellOfACallS) return;
  toldOfCallS_ = now;
  Say(told::Waiting{call});
}

bool Session::StoppedLast() {
  if (leavingSinceS_ == 0) {
    leavingSinceS_ = MonotonicS();
    thread_.StopWhatMoves();
  }
  return !thread_.Driven() || MonotonicS() - leavingSinceS_ > kLastStopsS;
}

void Session::RescueFromHang() {
  if (!(leaving_ || stopsItself_) || !thread_.Driven() || thread_.CallS() < kHungS) return;
  if (const auto choice = thread_.Choice()) rescue_(*choice);
}

}  // namespace lobegraph
