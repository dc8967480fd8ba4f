#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace lobegraph {

/// A serial port: 8 data bits, no parity, 1 stop bit, no flow control, DTR and RTS on. Only one program at a
/// time can have a port open.
class SCom {
 public:
  static constexpr int kReceived = 2;  ///< the event code of received data
  /// Speed of a port for which none was chosen.
  static constexpr std::string_view kStoredBaud = "57600";

  /// What became of an attempt to open.
  struct Outcome {
    bool Opened = false;
    /// The group that may open the port, when the user lacks just that right; else empty.
    std::string GroupToJoin;
  };

  virtual ~SCom() = default;
  /// @param number COM number
  virtual Outcome Open(std::int16_t number, std::string_view baud) = 0;
  virtual void Close() = 0;
  virtual bool PortOpen() const = 0;
  /// The number with which it was last opened.
  virtual std::int16_t PortNumber() const = 0;

  virtual void Send(std::string_view text) = 0;
  /// All that was received and not yet taken, as text.
  virtual std::string Input() = 0;
  /// Level of the CTS line; a closed port has none.
  virtual bool CtsHolding() = 0;
  /// Changes of the CTS line that the driver has counted; none where it does not count.
  virtual std::optional<std::uint32_t> CtsChanges() = 0;

  std::function<void(int eventCode)> OnComm;  ///< called inside yields only, for every batch received
  /// The far end has gone; the port is closed by then.
  std::function<void()> OnGone;
};

}  // namespace lobegraph
