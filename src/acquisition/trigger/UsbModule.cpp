#include "acquisition/trigger/UsbModule.h"

#include <array>
#include <string_view>

namespace lobegraph {
namespace {

constexpr std::uint32_t kSecondChannel = 1;
constexpr std::uint8_t kLatencyMs = 16;
constexpr std::uint8_t kAllInputs = 0;
constexpr std::uint8_t kReset = 0;
constexpr std::uint8_t kAsynchronousBitBang = 1;
constexpr const char* kCloseFailed = "Attempt to close DLP2232M failed.";

constexpr std::array<std::string_view, 18> kSuffixes = {" - Invalid Handle",
                                                        " - Device Not Found",
                                                        " - Device Not Opened",
                                                        " - General IO Error",
                                                        " - Insufficient Resources",
                                                        " - Invalid Parameter",
                                                        " - Invalid Baud Rate",
                                                        " - Device not opened for Erase",
                                                        " - Device not opened for Write",
                                                        " - Failed to write Device",
                                                        " - EEPROM read failed",
                                                        " - EEPROM write failed",
                                                        " - EEPROM erase failed",
                                                        " - EEPROM not present",
                                                        " - EEPROM not programmed",
                                                        " - Invalid Arguments",
                                                        " - not supported",
                                                        " - other error"};

}  // namespace

std::string UsbStatusSuffix(FtStatus status) {
  if (status < 1 || status > kSuffixes.size()) return "";
  return std::string(kSuffixes.at(status - 1));
}

void UsbModule::ReportUsbError(const std::string& functionName, FtStatus status) {
  flags_.HaltRequested = 1;
  messages_.Show({functionName + UsbStatusSuffix(status)});
}

void UsbModule::OpenDevice(const std::string& wantedDescription) {
  if (!CloseBefore() || !FindDevice(wantedDescription) || !Open(wantedDescription) || !Configure()) return;
  display_.PaintStatusShape(StatusColour::Green);
  display_.SetStatusText("OK");
}

bool UsbModule::CloseBefore() {
  if (!open_) return true;
  open_ = false;
  return Checked("FT_Close", library_.FT_Close(handle_)) || Fail(StatusColour::Red, kCloseFailed);
}

bool UsbModule::FindDevice(const std::string& wanted) {
  std::uint32_t count = 0;
  if (!Checked("GetFTDeviceCount", library_.FT_ListDevices(count, "", FT_LIST_NUMBER_ONLY))) count = 0;
  if (count == 0)
    return Fail(StatusColour::Yellow, "No FTDI devices found. Please connect the meter and re-try");
  FtDescription description{};
  const FtStatus status =
      library_.FT_ListDevices(kSecondChannel, description, FT_LIST_BY_INDEX | FT_OPEN_BY_DESCRIPTION);
  if (Checked("GetFTDeviceDescription", status) && TextOf(description) == wanted) return true;
  return Fail(StatusColour::Yellow, "No DLP2232M B device found. Please re-connect the meter and re-try");
}

bool UsbModule::Open(const std::string& wanted) {
  const FtStatus opened = library_.FT_OpenEx(DescriptionOf(wanted), FT_OPEN_BY_DESCRIPTION, handle_);
  if (!Checked("Open_USB_Device_By_Description", opened))
    return Fail(StatusColour::Red, "The open for the meter did not complete successfully.");
  std::uint32_t receiveCount = 0;
  if (!Checked("FT_GetQueueStatus", library_.FT_GetQueueStatus(handle_, receiveCount)))
    return Fail(StatusColour::Red, "Get USB Device QueuStatus command failed in procedure OpenDevice");
  open_ = true;
  return true;
}

bool UsbModule::Configure() {
  if (library_.FT_SetLatencyTimer(handle_, kLatencyMs) != kFtOk)
    return Fail(StatusColour::Red, "Set USB Device Latency Timer failed");
  if (library_.FT_SetBitMode(handle_, kAllInputs, kReset) != kFtOk)
    return Fail(StatusColour::Red, "Device reset failed in procedure OpenDevice.");
  if (library_.FT_SetBitMode(handle_, kAllInputs, kAsynchronousBitBang) != kFtOk)
    return Fail(StatusColour::Red, "Set to Bitbang mode failed in procedure OpenDevice.");
  return true;
}

bool UsbModule::PinD0() {
  std::uint8_t pins = 0;
  if (Checked("FT_GetBitMode", library_.FT_GetBitMode(handle_, pins))) return (pins & 1U) != 0;
  // A module that was pulled out and plugged in again is another one to the system: the next poll opens it.
  open_ = false;
  library_.FT_Close(handle_);
  return false;
}

bool UsbModule::Close() {
  if (!open_) return true;
  open_ = false;
  if (Checked("FT_Close", library_.FT_Close(handle_))) return true;
  display_.SetStatusText(kCloseFailed);
  return false;
}

bool UsbModule::Checked(const char* wrapper, FtStatus status) {
  if (status != kFtOk) ReportUsbError(wrapper, status);
  return status == kFtOk;
}

bool UsbModule::Fail(StatusColour shape, const std::string& lblStatus) {
  display_.PaintStatusShape(shape);
  flags_.HaltRequested = 1;
  display_.SetStatusText(lblStatus);
  display_.ShowWindow();
  return false;
}

}  // namespace lobegraph
