#pragma once

#include <QSerialPort>
#include <memory>

#include "acquisition/serial/ComPorts.h"
#include "acquisition/serial/SCom.h"

namespace lobegraph {

/// A COM port of this computer. Its events come inside the window's event loop. A port whose far end has gone
/// closes itself at the first error: it would report errors for ever.
class SerialControl final : public SCom {
 public:
  explicit SerialControl(const ComPorts& ports);
  SerialControl(const SerialControl&) = delete;
  SerialControl& operator=(const SerialControl&) = delete;

  bool PortOpen() const override { return port_.isOpen(); }
  void Send(std::string_view text) override;
  std::int16_t PortNumber() const override { return number_; }
  Outcome Open(std::int16_t number, std::string_view baud) override;
  void Close() override { port_.close(); }
  std::string Input() override { return port_.readAll().toStdString(); }
  bool CtsHolding() override;
  std::optional<std::uint32_t> CtsChanges() override;

 private:
  void ErrorOccurred(QSerialPort::SerialPortError error);

  const ComPorts& ports_;
  QSerialPort port_;
  std::int16_t number_ = 0;
};

}  // namespace lobegraph
