#pragma once

#include <memory>
#include <string>
#include <vector>

#include "acquisition/trigger/D2xx.h"

struct ftdi_context;

namespace lobegraph {

/// The USB modules that libftdi finds. It shows one device with channels where D2xx shows one device for each
/// channel: index 0 is channel A, 1 is channel B, and their descriptions are the product's text with " A" and
/// " B". The kernel's driver of the channel in use is detached and comes back when it is closed; the other
/// channel's is left alone. One channel is open at a time: opening another closes the first.
class FtdiModule final : public D2xx {
 public:
  FtdiModule() = default;
  ~FtdiModule() override;
  FtdiModule(const FtdiModule&) = delete;
  FtdiModule& operator=(const FtdiModule&) = delete;

  FtStatus FT_ListDevices(std::uint32_t& count, const std::string& empty, std::uint32_t flags) override;
  FtStatus FT_ListDevices(std::uint32_t index, FtDescription& description, std::uint32_t flags) override;
  FtStatus FT_OpenEx(const FtDescription& description, std::uint32_t flags, FtHandle& handle) override;
  FtStatus FT_Close(FtHandle handle) override;
  FtStatus FT_GetQueueStatus(FtHandle handle, std::uint32_t& receiveCount) override;
  FtStatus FT_SetLatencyTimer(FtHandle handle, std::uint8_t milliseconds) override;
  FtStatus FT_SetBitMode(FtHandle handle, std::uint8_t mask, std::uint8_t mode) override;
  FtStatus FT_GetBitMode(FtHandle handle, std::uint8_t& pins) override;

 private:
  struct Channel {
    std::string Description;
    std::uint8_t Bus;
    std::uint8_t Address;
    int Number;  ///< 0: A
  };
  std::vector<Channel> Channels() const;
  bool IsOpen(FtHandle handle) const { return context_ != nullptr && handle == handle_; }
  void Release();

  ftdi_context* context_ = nullptr;
  FtHandle handle_ = 0;  ///< counts up: the handle of a closed channel is invalid for ever
};

}  // namespace lobegraph
