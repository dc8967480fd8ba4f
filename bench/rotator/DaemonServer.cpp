#include "bench/rotator/DaemonServer.h"

#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <memory>
#include <stdexcept>

namespace lobegraph {
namespace {

constexpr int kLookEveryMs = 20;
constexpr std::size_t kLongestLine = 4096;

struct FreeAddresses {
  void operator()(addrinfo* list) const { freeaddrinfo(list); }
};

int ListenAt(const addrinfo& address) {
  const int handle = socket(address.ai_family, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  const int yes = 1;
  if (handle < 0) return -1;
  setsockopt(handle, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
  if (bind(handle, address.ai_addr, address.ai_addrlen) == 0 && listen(handle, 8) == 0) return handle;
  close(handle);
  return -1;
}

int ListenAt(const HostAndPort& place) {
  addrinfo hints{};
  hints.ai_socktype = SOCK_STREAM;
  addrinfo* found = nullptr;
  const std::string where = place.Host + ":" + std::to_string(place.Port);
  if (const int problem = getaddrinfo(place.Host.c_str(), std::to_string(place.Port).c_str(), &hints, &found);
      problem != 0)
    throw std::runtime_error(where + ": " + gai_strerror(problem));
  const std::unique_ptr<addrinfo, FreeAddresses> addresses(found);
  for (const addrinfo* address = found; address != nullptr; address = address->ai_next)
    if (const int handle = ListenAt(*address); handle >= 0) return handle;
  throw std::runtime_error("cannot listen at " + where + ": " + std::strerror(errno));
}

}  // namespace

HostAndPort ReadHostAndPort(const std::string& text) {
  HostAndPort place;
  const std::size_t colon = text.rfind(':');
  const std::string port = colon == std::string::npos ? text : text.substr(colon + 1);
  if (colon != std::string::npos) place.Host = text.substr(0, colon);
  if (place.Host.starts_with('[') && place.Host.ends_with(']'))
    place.Host = place.Host.substr(1, place.Host.size() - 2);
  const bool digits =
      !port.empty() && port.size() <= 5 && port.find_first_not_of("0123456789") == std::string::npos;
  place.Port = digits ? std::stoi(port) : 0;
  if (place.Host.empty() || place.Port < 1 || place.Port > 65535)
    throw std::invalid_argument("\"" + text + "\" is no PORT or HOST:PORT");
  return place;
}

double MonotonicS() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

DaemonServer::DaemonServer(const HostAndPort& place, const MotorSettings& motor, const DaemonSettings& daemon)
    : motor_(motor, MonotonicS()),
      daemon_(motor_, motor, daemon),
      listening_(ListenAt(place)),
      thread_([this] { Run(); }) {}

DaemonServer::~DaemonServer() {
  ends_ = true;
  thread_.join();
  for (const Client& client : clients_) close(client.Handle);
  close(listening_);
}

double DaemonServer::DegAt(double monotonicS) {
  const std::lock_guard lock(mutex_);
  return motor_.DegAt(monotonicS);
}

void DaemonServer::Run() {
  while (!ends_) {
    Await();
    for (Client& client : clients_) SendWhatIsDue(client);
    for (const Client& client : clients_)
      if (client.Gone) close(client.Handle);
    std::erase_if(clients_, [](const Client& client) { return client.Gone; });
  }
}

void DaemonServer::Await() {
  std::vector<pollfd> awaited{{listening_, POLLIN, 0}};
  int waitMs = kLookEveryMs;
  for (const Client& client : clients_) {
    awaited.push_back({client.Handle, POLLIN, 0});
    if (!client.Answers.empty()) waitMs = 1;
  }
  if (poll(awaited.data(), awaited.size(), waitMs) <= 0) return;
  for (std::size_t i = 0; i < clients_.size(); ++i)
    if (awaited[i + 1].revents != 0) Hear(clients_[i]);
  if (awaited[0].revents != 0) Accept();
}

void DaemonServer::Accept() {
  const int handle = accept4(listening_, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
  if (handle >= 0) clients_.push_back({handle, "", {}, false});
}

void DaemonServer::Hear(Client& client) {
  std::array<char, 1024> bytes{};
  const ssize_t count = recv(client.Handle, bytes.data(), bytes.size(), 0);
  if (count < 0 && (errno == EAGAIN || errno == EINTR)) return;
  if (count > 0) client.Heard.append(bytes.data(), static_cast<std::size_t>(count));
  client.Gone = count <= 0 || client.Heard.size() > kLongestLine;
  for (std::size_t end = client.Heard.find('\n'); end != std::string::npos; end = client.Heard.find('\n')) {
    std::string line = client.Heard.substr(0, end);
    client.Heard.erase(0, end + 1);
    if (line.ends_with('\r')) line.pop_back();
    Obey(client, line);
  }
}

void DaemonServer::Obey(Client& client, const std::string& line) {
  if (Daemon::EndsWith(line)) client.Gone = true;
  if (client.Gone) return;
  const double now = MonotonicS();
  const std::lock_guard lock(mutex_);
  if (auto answer = daemon_.Answer(line, now))
    client.Answers.push_back({now + daemon_.AnswersLateS(), std::move(*answer)});
}

void DaemonServer::SendWhatIsDue(Client& client) {
  const double now = MonotonicS();
  while (!client.Answers.empty() && client.Answers.front().DueS <= now) {
    const std::string text = std::move(client.Answers.front().Text);
    client.Answers.erase(client.Answers.begin());
    if (send(client.Handle, text.data(), text.size(), MSG_NOSIGNAL) < 0) client.Gone = true;
  }
}

}  // namespace lobegraph
