#pragma once

#include <string>

#include "acquisition/core/MeterDisplay.h"
#include "acquisition/core/RunFlags.h"
#include "acquisition/core/UserMessages.h"
#include "acquisition/trigger/D2xx.h"

namespace lobegraph {

/// The USB module whose pin D0 (channel B) carries the rotator's pulse.
class UsbModule {
 public:
  UsbModule(D2xx& library, MeterDisplay& display, RunFlags& flags, UserMessages& messages)
      : library_(library), display_(display), flags_(flags), messages_(messages) {}

  /// Opens the channel with this description and makes all its pins inputs. What became of it stands in the
  /// meter window, which is shown when it failed; a failure also ends a collection.
  void OpenDevice(const std::string& wantedDescription);
  bool UsbDeviceOpen() const { return open_; }
  /// Level of pin D0. A failure is reported and reads low, and the module is closed.
  bool PinD0();
  /// @return false when the module was open and did not close; it counts as closed all the same
  bool Close();

  /// Shows a failure of the library in a box and ends a collection.
  void ReportUsbError(const std::string& functionName, FtStatus status);

 private:
  bool CloseBefore();
  bool FindDevice(const std::string& wanted);
  bool Open(const std::string& wanted);
  bool Configure();
  bool Checked(const char* wrapper, FtStatus status);
  bool Fail(StatusColour shape, const std::string& lblStatus);

  D2xx& library_;
  MeterDisplay& display_;
  RunFlags& flags_;
  UserMessages& messages_;
  FtHandle handle_ = 0;
  bool open_ = false;
};

/// What a status of the library says, as it follows a function's name; empty for one without words.
std::string UsbStatusSuffix(FtStatus status);

}  // namespace lobegraph
