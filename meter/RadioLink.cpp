#include "meter/RadioLink.h"

#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <memory>

namespace lobegraph {
namespace {

/// No daemon says a strength in so many bytes.
constexpr std::size_t kLongestAnswer = 4096;

struct FreeAddresses {
  void operator()(addrinfo* list) const { freeaddrinfo(list); }
};

}  // namespace

RadioLink::RadioLink(const std::string& host, int port, std::chrono::milliseconds limit) : limit_(limit) {
  try {
    Connect(host, port);
  } catch (...) {
    if (handle_ >= 0) close(handle_);
    throw;
  }
}

RadioLink::~RadioLink() { close(handle_); }

void RadioLink::Connect(const std::string& host, int port) {
  addrinfo hints{};
  hints.ai_socktype = SOCK_STREAM;
  addrinfo* found = nullptr;
  if (const int problem = getaddrinfo(host.c_str(), std::to_string(port).c_str(), &hints, &found);
      problem != 0)
    throw LinkError(host + ": " + gai_strerror(problem));
  const std::unique_ptr<addrinfo, FreeAddresses> addresses(found);
  const Moment until = std::chrono::steady_clock::now() + limit_;
  for (const addrinfo* address = found; address != nullptr; address = address->ai_next)
    if (TryConnect(*address, until)) return;
  throw LinkError("nobody answers at " + host + ":" + std::to_string(port));
}

bool RadioLink::TryConnect(const addrinfo& address, Moment until) {
  if (handle_ >= 0) close(handle_);
  handle_ = socket(address.ai_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
  if (handle_ < 0) return false;
  if (connect(handle_, address.ai_addr, address.ai_addrlen) == 0) return true;
  if (errno != EINPROGRESS) return false;
  try {
    Await(POLLOUT, until);
  } catch (const LinkError&) {
    return false;
  }
  int problem = 0;
  socklen_t size = sizeof problem;
  return getsockopt(handle_, SOL_SOCKET, SO_ERROR, &problem, &size) == 0 && problem == 0;
}

std::string RadioLink::Ask(const std::string& line) {
  const Moment until = std::chrono::steady_clock::now() + limit_;
  received_.clear();  // what came too late belongs to a question of before
  const std::string question = line + "\n";
  if (send(handle_, question.data(), question.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(question.size()))
    throw LinkError("the daemon has gone");
  while (received_.find('\n') == std::string::npos) {
    Await(POLLIN, until);
    std::array<char, 256> buffer{};
    const ssize_t count = recv(handle_, buffer.data(), buffer.size(), 0);
    if (count == 0 || (count < 0 && errno != EAGAIN)) throw LinkError("the daemon has gone");
    if (count > 0) received_.append(buffer.data(), static_cast<std::size_t>(count));
    if (received_.size() > kLongestAnswer) throw LinkError("the daemon's answer has no end");
  }
  const std::string answer = received_.substr(0, received_.find('\n'));
  return answer.ends_with('\r') ? answer.substr(0, answer.size() - 1) : answer;
}

void RadioLink::Await(short events, Moment until) const {
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(until - std::chrono::steady_clock::now());
  pollfd wanted{handle_, events, 0};
  const int ready = left.count() <= 0 ? 0 : poll(&wanted, 1, static_cast<int>(left.count()));
  if (ready < 0 && errno == EINTR) throw LinkError("interrupted");
  if (ready <= 0) throw LinkError("no answer within " + std::to_string(limit_.count()) + " ms");
}

}  // namespace lobegraph
