#include "acquisition/qt/SerialControl.h"

#include <grp.h>
#include <linux/serial.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "data/base/Numbers.h"
#include "data/base/Rounding.h"

namespace lobegraph {
namespace {

/// The group that may open a device which this user may not; empty when rights are not what is missing.
std::string GroupToJoin(const std::string& path) {
  struct stat status {};
  if (access(path.c_str(), R_OK | W_OK) == 0 || errno != EACCES || stat(path.c_str(), &status) != 0)
    return "";
  const group* owner = getgrgid(status.st_gid);
  return owner == nullptr ? std::to_string(status.st_gid) : owner->gr_name;
}

}  // namespace

SerialControl::SerialControl(const ComPorts& ports) : ports_(ports) {
  QObject::connect(&port_, &QSerialPort::readyRead, &port_, [this] {
    if (OnComm) OnComm(kReceived);
  });
  QObject::connect(&port_, &QSerialPort::errorOccurred, &port_,
                   [this](QSerialPort::SerialPortError error) { ErrorOccurred(error); });
}

SCom::Outcome SerialControl::Open(std::int16_t number, std::string_view baud) {
  number_ = number;
  const std::optional<std::string> path = ports_.PathOf(number_);
  if (!path) return {};
  port_.setPortName(QString::fromStdString(*path));
  port_.setBaudRate(ToInt32(LeadingNumber(baud)));
  port_.setDataBits(QSerialPort::Data8);
  port_.setParity(QSerialPort::NoParity);
  port_.setStopBits(QSerialPort::OneStop);
  port_.setFlowControl(QSerialPort::NoFlowControl);
  if (!port_.open(QIODevice::ReadWrite)) return {.Opened = false, .GroupToJoin = GroupToJoin(*path)};
  port_.setDataTerminalReady(true);
  port_.setRequestToSend(true);
  return {.Opened = true, .GroupToJoin = ""};
}

void SerialControl::Send(std::string_view text) {
  if (PortOpen()) port_.write(text.data(), static_cast<qint64>(text.size()));
}

bool SerialControl::CtsHolding() {
  int lines = 0;
  return PortOpen() && ioctl(port_.handle(), TIOCMGET, &lines) == 0 && (lines & TIOCM_CTS) != 0;
}

std::optional<std::uint32_t> SerialControl::CtsChanges() {
  serial_icounter_struct counts{};
  if (!PortOpen() || ioctl(port_.handle(), TIOCGICOUNT, &counts) != 0) return std::nullopt;
  return static_cast<std::uint32_t>(counts.cts);
}

void SerialControl::ErrorOccurred(QSerialPort::SerialPortError error) {
  const bool gone = error == QSerialPort::ReadError || error == QSerialPort::ResourceError;
  if (!gone || !port_.isOpen()) return;
  port_.close();
  if (OnGone) OnGone();
}

}  // namespace lobegraph
