#include "bench/rotator/Follower.h"

#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <memory>
#include <stdexcept>
#include <utility>

#include "data/base/Numbers.h"
#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

constexpr std::chrono::milliseconds kAskEvery{25};
constexpr int kAnswerMs = 1000;
constexpr double kCarriedOnS = 0.5;  ///< without an answer it stands after that

struct FreeAddresses {
  void operator()(addrinfo* list) const { freeaddrinfo(list); }
};

int ConnectTo(const HostAndPort& place) {
  addrinfo hints{};
  hints.ai_socktype = SOCK_STREAM;
  addrinfo* found = nullptr;
  if (getaddrinfo(place.Host.c_str(), std::to_string(place.Port).c_str(), &hints, &found) != 0) return -1;
  const std::unique_ptr<addrinfo, FreeAddresses> addresses(found);
  for (const addrinfo* address = found; address != nullptr; address = address->ai_next) {
    const int handle = socket(address->ai_family, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (handle >= 0 && connect(handle, address->ai_addr, address->ai_addrlen) == 0) return handle;
    if (handle >= 0) close(handle);
  }
  return -1;
}

}  // namespace

Follower::Follower(const HostAndPort& place) : place_(place), handle_(ConnectTo(place)) {
  const auto told = handle_ < 0 ? std::nullopt : Ask();
  if (!told)
    throw std::runtime_error("no rotator's daemon answers at " + place.Host + ":" +
                             std::to_string(place.Port));
  before_ = last_ = *told;
  thread_ = std::thread([this] { Run(); });
}

Follower::~Follower() {
  ends_ = true;
  thread_.join();
  if (handle_ >= 0) close(handle_);
}

double Follower::DegAt(double monotonicS) const {
  const std::lock_guard lock(mutex_);
  const double between = last_.TimeS - before_.TimeS;
  const double speed = between > 0 ? (last_.Deg - before_.Deg) / between : 0;
  return last_.Deg + speed * std::clamp(monotonicS - last_.TimeS, -kCarriedOnS, kCarriedOnS);
}

void Follower::Run() {
  while (!ends_) {
    std::this_thread::sleep_for(kAskEvery);
    if (handle_ < 0) handle_ = ConnectTo(place_);
    if (handle_ < 0) continue;
    const auto told = Ask();
    if (!told) close(std::exchange(handle_, -1));
    if (!told) continue;
    const std::lock_guard lock(mutex_);
    before_ = last_;
    last_ = *told;
  }
}

std::optional<Follower::Told> Follower::Ask() {
  const double asked = MonotonicS();
  if (send(handle_, "p\n", 2, MSG_NOSIGNAL) != 2) return std::nullopt;
  std::string answer;
  while (std::count(answer.begin(), answer.end(), '\n') < 2) {
    pollfd wanted{handle_, POLLIN, 0};
    if (poll(&wanted, 1, kAnswerMs) <= 0) return std::nullopt;
    std::array<char, 256> bytes{};
    const ssize_t count = recv(handle_, bytes.data(), bytes.size(), 0);
    if (count <= 0) return std::nullopt;
    answer.append(bytes.data(), static_cast<std::size_t>(count));
  }
  try {
    return Told{(asked + MonotonicS()) / 2, WholeNumberText(answer.substr(0, answer.find('\n')))};
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

}  // namespace lobegraph
