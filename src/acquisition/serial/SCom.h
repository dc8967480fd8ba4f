#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "acquisition/serial/MeterPort.h"

namespace lobegraph {

/// A serial port as a control: its properties are set first, then it is opened. 8 data bits, no parity, 1
/// stop bit, no flow control; only one program at a time can have a port open.
class SCom : public MeterPort {
 public:
  static constexpr int kReceived = 2;  ///< the event code of received data

  /// What became of an attempt to open.
  struct Outcome {
    bool Opened = false;
    /// The group that may open the port, when the user lacks just that right; else empty.
    std::string GroupToJoin;
  };

  virtual void SetPortNumber(std::int16_t number) = 0;
  virtual std::int16_t PortNumber() const = 0;
  virtual void SetBaud(std::string_view baud) = 0;
  /// Characters that one Input takes; 0: all that wait.
  virtual void SetInputLength(int characters) = 0;
  virtual void SetDtr(bool asserted) = 0;
  virtual void SetRts(bool asserted) = 0;
  virtual void SetReceiveThreshold(int characters) = 0;
  virtual void SetSendThreshold(int characters) = 0;
  /// 0: text.
  virtual void SetInputMode(int mode) = 0;
  virtual Outcome Open() = 0;
  virtual void Close() = 0;

  /// What was received and not yet taken.
  virtual std::string Input() = 0;
  /// Level of the CTS line; a closed port has none.
  virtual bool CtsHolding() = 0;
  /// Changes of the CTS line that the driver has counted; none where it does not count.
  virtual std::optional<std::uint32_t> CtsChanges() = 0;

  std::function<void(int eventCode)> OnComm;  ///< called inside yields only
  /// The far end has gone; the port is closed by then.
  std::function<void()> OnGone;
};

}  // namespace lobegraph
