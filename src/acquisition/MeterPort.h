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

}  // namespace lobegraph
