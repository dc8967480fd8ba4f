#pragma once

#include <string_view>

namespace lobegraph {

/// The serial meter's port (MSComm1).
class MeterPort {
 public:
  virtual ~MeterPort() = default;
  virtual bool PortOpen() const = 0;
  virtual void Send(std::string_view text) = 0;
};

/// Speed of the meter's port.
inline constexpr std::string_view kTarvenBaud = "38400";
inline constexpr std::string_view kRoskaBaud = "9600";

}  // namespace lobegraph
