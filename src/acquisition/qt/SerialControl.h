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
  void SetPortNumber(std::int16_t number) override { number_ = number; }
  std::int16_t PortNumber() const override { return number_; }
  void SetBaud(std::string_view baud) override;
  void SetInputLength(int characters) override { inputLength_ = characters; }
  void SetDtr(bool asserted) override { dtr_ = asserted; }
  void SetRts(bool asserted) override { rts_ = asserted; }
  /// An event for every batch received is the only threshold there is.
  void SetReceiveThreshold(int) override {}
  void SetSendThreshold(int) override {}
  void SetInputMode(int) override {}  ///< text, always
  Outcome Open() override;
  void Close() override;
  std::string Input() override;
  bool CtsHolding() override;
  std::optional<std::uint32_t> CtsChanges() override;

 private:
  void ErrorOccurred(QSerialPort::SerialPortError error);

  const ComPorts& ports_;
  QSerialPort port_;
  std::int16_t number_ = 0;
  int baud_;
  int inputLength_ = 0;
  bool dtr_ = true;
  bool rts_ = true;
};

}  // namespace lobegraph
