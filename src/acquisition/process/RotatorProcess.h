#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "acquisition/rotator/RotatorPipe.h"

namespace lobegraph {

/// lobegraph-rotator as a process, joined by a pair of sockets. What it still has to do when it is left or
/// when this program dies (stop the antenna), it does alone.
class RotatorProcess final : public RotatorPipe {
 public:
  /// @param program path of lobegraph-rotator
  explicit RotatorProcess(std::string program) : program_(std::move(program)) {}
  ~RotatorProcess() override;
  RotatorProcess(const RotatorProcess&) = delete;
  RotatorProcess& operator=(const RotatorProcess&) = delete;

  bool Start() override;
  void Send(std::string_view lines) override;
  std::optional<std::string> Receive() override;
  void Kill() override;
  void Leave() override;
  void LeaveStopping(const RotatorChoice& choice) override;

  /// -1 when there is none.
  pid_t Id() const { return process_; }

 private:
  /// @param socket of the process, its input and output; -1 for none. @return its id, -1 when it did not
  /// start
  pid_t Spawn(std::vector<std::string> arguments, int socket) const;
  void CloseSocket();
  void CollectEnded();

  std::string program_;
  pid_t process_ = -1;
  int socket_ = -1;
  std::string unsent_;
  std::vector<pid_t> left_;  ///< to be collected when they end
};

/// The path of a program that is installed with this one: beside it, or in the folder of the helpers that
/// nobody starts by hand. Empty when it is in neither.
std::string ProgramBesideThisOne(const std::string& name);

}  // namespace lobegraph
