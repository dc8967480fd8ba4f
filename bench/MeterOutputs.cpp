#include "bench/MeterOutputs.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <stdexcept>

namespace lobegraph {
namespace {

[[noreturn]] void Fail(const std::string& what) {
  throw std::runtime_error(what + ": " + std::strerror(errno));
}

int Checked(int handle, const std::string& what) {
  if (handle < 0) Fail(what);
  return handle;
}

}  // namespace

MeterTerminal::MeterTerminal()
    : master_(Checked(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC), "no pseudo-terminal")),
      held_(-1) {
  std::array<char, 64> name{};
  if (grantpt(master_) != 0 || unlockpt(master_) != 0 || ptsname_r(master_, name.data(), name.size()) != 0)
    Fail("no pseudo-terminal");
  path_ = name.data();
  held_ = Checked(open(path_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC), path_);
  termios settings{};
  tcgetattr(held_, &settings);
  cfmakeraw(&settings);
  tcsetattr(held_, TCSANOW, &settings);
}

MeterTerminal::~MeterTerminal() {
  close(held_);
  close(master_);
}

void MeterTerminal::Send(const std::string& text) const {
  // Values from before the program reads would only make it late.
  int waiting = 0;
  if (ioctl(held_, TIOCINQ, &waiting) == 0 && waiting > 256) tcflush(held_, TCIFLUSH);
  [[maybe_unused]] const auto written = write(master_, text.data(), text.size());
}

std::string MeterTerminal::Received() const {
  std::array<char, 256> buffer{};
  const ssize_t count = read(master_, buffer.data(), buffer.size());
  return count <= 0 ? "" : std::string(buffer.data(), static_cast<std::size_t>(count));
}

PulseOutput::PulseOutput(const std::string& path)
    : handle_(Checked(open(path.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC), path)) {}

PulseOutput::~PulseOutput() {
  Set(false);
  close(handle_);
}

void PulseOutput::Set(bool high) {
  if (high == high_) return;
  high_ = high;
  const int rts = TIOCM_RTS;
  if (ioctl(handle_, high ? TIOCMBIS : TIOCMBIC, &rts) == 0) return;
  [[maybe_unused]] const auto written = write(handle_, high ? "H\n" : "L\n", 2);
}

}  // namespace lobegraph
