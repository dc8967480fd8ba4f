#include "acquisition/process/RotatorProcess.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <filesystem>
#include <utility>

namespace lobegraph {
namespace {

constexpr std::size_t kMostUnsent = 1U << 16U;  ///< a process that reads nothing hangs and is soon replaced

/// What the new process is to have: both ends of its line, no signal held back, a group of its own, so that
/// Ctrl+C reaches it through its user, who stops the antenna in order.
class SpawnOrders {
 public:
  explicit SpawnOrders(int socket) {
    posix_spawn_file_actions_init(&files_);
    posix_spawnattr_init(&attributes_);
    if (socket >= 0) {
      posix_spawn_file_actions_adddup2(&files_, socket, STDIN_FILENO);
      posix_spawn_file_actions_adddup2(&files_, socket, STDOUT_FILENO);
    }
    sigset_t none, usual;
    sigemptyset(&none);
    sigemptyset(&usual);
    for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) sigaddset(&usual, number);
    posix_spawnattr_setsigmask(&attributes_, &none);
    posix_spawnattr_setsigdefault(&attributes_, &usual);
    posix_spawnattr_setflags(&attributes_,
                             POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
  }
  ~SpawnOrders() {
    posix_spawn_file_actions_destroy(&files_);
    posix_spawnattr_destroy(&attributes_);
  }
  SpawnOrders(const SpawnOrders&) = delete;
  SpawnOrders& operator=(const SpawnOrders&) = delete;

  const posix_spawn_file_actions_t* Files() const { return &files_; }
  const posix_spawnattr_t* Attributes() const { return &attributes_; }

 private:
  posix_spawn_file_actions_t files_{};
  posix_spawnattr_t attributes_{};
};

}  // namespace

RotatorProcess::~RotatorProcess() {
  Leave();
  CollectEnded();
}

bool RotatorProcess::Start() {
  Kill();
  CollectEnded();
  std::array<int, 2> ends{};
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) return false;
  process_ = Spawn({program_}, ends[1]);
  close(ends[1]);
  socket_ = ends[0];
  fcntl(socket_, F_SETFL, O_NONBLOCK);
  if (process_ < 0) CloseSocket();
  return process_ >= 0;
}

pid_t RotatorProcess::Spawn(std::vector<std::string> arguments, int socket) const {
  std::vector<char*> pointers;
  for (std::string& argument : arguments) pointers.push_back(argument.data());
  pointers.push_back(nullptr);
  const SpawnOrders orders(socket);
  pid_t process = -1;
  const int problem =
      posix_spawn(&process, program_.c_str(), orders.Files(), orders.Attributes(), pointers.data(), environ);
  return problem == 0 ? process : -1;
}

void RotatorProcess::Send(std::string_view lines) {
  if (socket_ < 0 || unsent_.size() + lines.size() > kMostUnsent) return;
  unsent_ += lines;
  const ssize_t sent = send(socket_, unsent_.data(), unsent_.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
  if (sent > 0) unsent_.erase(0, static_cast<std::size_t>(sent));
}

std::optional<std::string> RotatorProcess::Receive() {
  if (socket_ < 0) return std::nullopt;
  std::string received;
  std::array<char, 4096> bytes{};
  ssize_t count = 0;
  while ((count = recv(socket_, bytes.data(), bytes.size(), MSG_DONTWAIT)) > 0) {
    received.append(bytes.data(), static_cast<std::size_t>(count));
    if (received.size() > kMostUnsent) break;  // the rest at the next call
  }
  const bool ended = count == 0 || (count < 0 && errno != EAGAIN && errno != EINTR);
  if (ended && received.empty()) return std::nullopt;
  return received;
}

void RotatorProcess::Kill() {
  if (process_ > 0) kill(process_, SIGKILL);
  Leave();
}

void RotatorProcess::Leave() {
  CloseSocket();
  if (process_ > 0) left_.push_back(std::exchange(process_, -1));
}

void RotatorProcess::LeaveStopping(const RotatorChoice& choice) {
  Kill();
  const pid_t stopper =
      Spawn({program_, "--stop", std::to_string(choice.Model), std::to_string(choice.Baud), choice.Port}, -1);
  if (stopper > 0) left_.push_back(stopper);
}

void RotatorProcess::CloseSocket() {
  if (socket_ >= 0) close(std::exchange(socket_, -1));
  unsent_.clear();
}

void RotatorProcess::CollectEnded() {
  std::erase_if(left_, [](pid_t process) { return waitpid(process, nullptr, WNOHANG) != 0; });
}

std::string ProgramBesideThisOne(const std::string& name) {
  std::error_code none;
  const auto here = std::filesystem::read_symlink("/proc/self/exe", none).parent_path();
  for (const auto& folder : {here, here / ".." / "lib" / "lobegraph"}) {
    const auto path = folder / name;
    if (access(path.c_str(), X_OK) == 0) return path.string();
  }
  return {};
}

}  // namespace lobegraph
