#pragma once

#include <string>

namespace lobegraph {

/// A serial meter's end of a pseudo-terminal. The other end is the path that a program opens as the port.
class MeterTerminal {
 public:
  /// @throws std::runtime_error when the system gives none
  MeterTerminal();
  ~MeterTerminal();
  MeterTerminal(const MeterTerminal&) = delete;
  MeterTerminal& operator=(const MeterTerminal&) = delete;

  const std::string& Path() const { return path_; }
  /// An open handle of the end that programs open.
  int Handle() const { return held_; }
  /// Sends what there is room for; a meter does not wait for its reader.
  void Send(const std::string& text) const;
  /// What the program has sent since the last call.
  std::string Received() const;

 private:
  int master_;
  int held_;  ///< keeps the other end alive while no program has it open
  std::string path_;
};

/// Trigger pulses: the RTS line of a serial port, to be wired to the CTS line of the trigger's port. Anything
/// but a serial port gets a line "H" or "L" at each change.
class PulseOutput {
 public:
  /// @throws std::runtime_error when it cannot be opened for writing
  explicit PulseOutput(const std::string& path);
  ~PulseOutput();
  PulseOutput(const PulseOutput&) = delete;
  PulseOutput& operator=(const PulseOutput&) = delete;

  void Set(bool high);

 private:
  int handle_;
  bool high_ = false;
};

}  // namespace lobegraph
