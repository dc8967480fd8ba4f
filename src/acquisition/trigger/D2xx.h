#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace lobegraph {

using FtStatus = std::uint32_t;  ///< 0: success
using FtHandle = std::uint32_t;
/// A description as it is exchanged: text, a NUL, whatever.
using FtDescription = std::array<char, 50>;

inline constexpr FtStatus kFtOk = 0;
inline constexpr FtStatus kFtInvalidHandle = 1;
inline constexpr FtStatus kFtDeviceNotFound = 2;
inline constexpr FtStatus kFtDeviceNotOpened = 3;
inline constexpr FtStatus kFtIoError = 4;
inline constexpr FtStatus kFtInvalidParameter = 6;
inline constexpr FtStatus kFtOtherError = 18;

inline constexpr std::uint32_t FT_LIST_NUMBER_ONLY = 0x80000000;
inline constexpr std::uint32_t FT_LIST_BY_INDEX = 0x40000000;
inline constexpr std::uint32_t FT_OPEN_BY_DESCRIPTION = 2;

std::string TextOf(const FtDescription& buffer);
/// Cut to fit, a NUL at its end.
FtDescription DescriptionOf(const std::string& text);

/// USB modules by the calls of their maker's library. Each channel of a module is a device of its own: a
/// module of two channels has index 0 ("... A") and 1 ("... B").
class D2xx {
 public:
  virtual ~D2xx() = default;
  virtual FtStatus FT_ListDevices(std::uint32_t& count, const std::string& empty, std::uint32_t flags) = 0;
  virtual FtStatus FT_ListDevices(std::uint32_t index, FtDescription& description, std::uint32_t flags) = 0;
  virtual FtStatus FT_OpenEx(const FtDescription& description, std::uint32_t flags, FtHandle& handle) = 0;
  virtual FtStatus FT_Close(FtHandle handle) = 0;
  virtual FtStatus FT_GetQueueStatus(FtHandle handle, std::uint32_t& receiveCount) = 0;
  virtual FtStatus FT_SetLatencyTimer(FtHandle handle, std::uint8_t milliseconds) = 0;
  virtual FtStatus FT_SetBitMode(FtHandle handle, std::uint8_t mask, std::uint8_t mode) = 0;
  virtual FtStatus FT_GetBitMode(FtHandle handle, std::uint8_t& pins) = 0;
};

}  // namespace lobegraph
