#pragma once

#include <exception>
#include <vector>

#include "acquisition/rotator/RotatorFault.h"
#include "acquisition/rotator/RotatorTypes.h"

namespace lobegraph {

/// Why a call to a rotator failed.
class DeviceFault : public std::exception {
 public:
  explicit DeviceFault(RotatorFault why) : why_(why) {}
  RotatorFault Why() const { return why_; }
  const char* what() const noexcept override { return "a call to the rotator failed"; }

 private:
  RotatorFault why_;
};

/// A rotator at its port. Calls wait for the rotator, and may wait long; all come from one thread.
class RotatorDevice {
 public:
  virtual ~RotatorDevice() = default;

  virtual std::vector<RotatorModel> Models() = 0;
  /// The one that was open is closed first. @throws DeviceFault
  virtual RotatorAbilities Open(const RotatorChoice& choice) = 0;
  virtual void Close() = 0;
  /// Clockwise from north, as the rotator counts. @throws DeviceFault, also for an answer beyond a rotator's
  /// bearings
  virtual double Position() = 0;
  /// @throws DeviceFault
  virtual void GoTo(double deg) = 0;
  virtual void Turn(TurnSense sense) = 0;
  virtual void Stop() = 0;
  virtual void Park() = 0;
};

}  // namespace lobegraph
