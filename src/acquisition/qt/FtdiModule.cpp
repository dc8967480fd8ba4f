#include "acquisition/qt/FtdiModule.h"

#include <ftdi.h>
#include <libusb.h>

#include <algorithm>
#include <array>
#include <utility>

namespace lobegraph {
namespace {

constexpr int kMaker = 0x0403;
constexpr int kTwoChannels = 0x6010;
constexpr int kOtherUser = -5;  // libftdi: the channel cannot be claimed

/// libftdi's codes differ from function to function; what the bus itself said tells more.
FtStatus StatusOf(int result) {
  if (result >= 0) return kFtOk;
  if (result == -666 || result == LIBUSB_ERROR_NO_DEVICE) return kFtDeviceNotFound;
  return kFtIoError;
}

struct FreeContext {
  void operator()(ftdi_context* context) const { ftdi_free(context); }
};
using ContextPtr = std::unique_ptr<ftdi_context, FreeContext>;

struct FreeList {
  void operator()(ftdi_device_list* list) const { ftdi_list_free2(list); }
};

}  // namespace

FtdiModule::~FtdiModule() { Release(); }

std::vector<FtdiModule::Channel> FtdiModule::Channels() const {
  const ContextPtr context(ftdi_new());
  ftdi_device_list* found = nullptr;
  if (!context || ftdi_usb_find_all(context.get(), &found, kMaker, kTwoChannels) <= 0) return {};
  const std::unique_ptr<ftdi_device_list, FreeList> list(found);
  std::vector<Channel> channels;
  for (const ftdi_device_list* entry = found; entry != nullptr; entry = entry->next) {
    std::array<char, 128> product{};
    if (ftdi_usb_get_strings(context.get(), entry->dev, nullptr, 0, product.data(), product.size(), nullptr,
                             0) != 0)
      product.front() = '\0';
    for (const auto& [number, suffix] : {std::pair{0, " A"}, {1, " B"}})
      channels.push_back({product.data() + std::string(suffix), libusb_get_bus_number(entry->dev),
                          libusb_get_device_address(entry->dev), number});
  }
  return channels;
}

FtStatus FtdiModule::FT_ListDevices(std::uint32_t& count, const std::string&, std::uint32_t) {
  count = static_cast<std::uint32_t>(Channels().size());
  return kFtOk;
}

FtStatus FtdiModule::FT_ListDevices(std::uint32_t index, FtDescription& description, std::uint32_t) {
  const std::vector<Channel> channels = Channels();
  if (index >= channels.size()) return kFtDeviceNotFound;
  description = DescriptionOf(channels[index].Description);
  return kFtOk;
}

FtStatus FtdiModule::FT_OpenEx(const FtDescription& description, std::uint32_t, FtHandle& handle) {
  Release();
  const std::vector<Channel> channels = Channels();
  const auto channel = std::find_if(channels.begin(), channels.end(), [&](const Channel& candidate) {
    return candidate.Description == TextOf(description);
  });
  if (channel == channels.end()) return kFtDeviceNotFound;
  ContextPtr context(ftdi_new());
  if (!context) return kFtOtherError;
  ftdi_set_interface(context.get(), channel->Number == 0 ? INTERFACE_A : INTERFACE_B);
  // Only the chosen channel's kernel driver goes.
  context->module_detach_mode = AUTO_DETACH_REATACH_SIO_MODULE;
  if (const int result = ftdi_usb_open_bus_addr(context.get(), channel->Bus, channel->Address); result < 0)
    return result == kOtherUser ? kFtDeviceNotOpened : StatusOf(result);
  context_ = context.release();
  handle = ++handle_;
  return kFtOk;
}

FtStatus FtdiModule::FT_Close(FtHandle handle) {
  if (!IsOpen(handle)) return kFtInvalidHandle;
  // A module that was pulled out is no failed close; whatever the bus answers, the channel is given up.
  const int released = libusb_release_interface(context_->usb_dev, context_->interface);
  Release();
  return released == LIBUSB_ERROR_NO_DEVICE ? kFtOk : StatusOf(released);
}

void FtdiModule::Release() {
  if (context_ == nullptr) return;
  ftdi_usb_close(context_);
  ftdi_free(std::exchange(context_, nullptr));
}

/// Pins are read directly; nothing ever waits in a queue.
FtStatus FtdiModule::FT_GetQueueStatus(FtHandle handle, std::uint32_t& receiveCount) {
  receiveCount = 0;
  return IsOpen(handle) ? kFtOk : kFtInvalidHandle;
}

FtStatus FtdiModule::FT_SetLatencyTimer(FtHandle handle, std::uint8_t milliseconds) {
  if (!IsOpen(handle)) return kFtInvalidHandle;
  return StatusOf(ftdi_set_latency_timer(context_, milliseconds));
}

FtStatus FtdiModule::FT_SetBitMode(FtHandle handle, std::uint8_t mask, std::uint8_t mode) {
  if (!IsOpen(handle)) return kFtInvalidHandle;
  return StatusOf(ftdi_set_bitmode(context_, mask, mode));
}

FtStatus FtdiModule::FT_GetBitMode(FtHandle handle, std::uint8_t& pins) {
  if (!IsOpen(handle)) return kFtInvalidHandle;
  return StatusOf(ftdi_read_pins(context_, &pins));
}

}  // namespace lobegraph
