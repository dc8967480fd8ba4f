#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "settings/SettingsStore.h"

namespace lobegraph {

/// COM numbers go from 1 to this.
inline constexpr int kHighestComNumber = 32;

/// An attached serial adapter.
struct PortAdapter {
  std::string Path;   ///< stays the same when plugs are swapped, where the system knows such a path
  std::string Title;  ///< "FTDI FT232R, ttyUSB0"
};

/// What COM numbers mean on this computer: the number's own path in the store (section "Ports", key "COM3"),
/// else the UART n-1 if the kernel's tables say that one is there, else ttyUSB n-1, else ttyACM n-1. Reads
/// the system's tables only; never opens a port.
class ComPorts {
 public:
  /// @param root where /dev and /sys stand
  explicit ComPorts(SettingsStore& store, std::filesystem::path root = "/")
      : store_(store), root_(std::move(root)) {}

  /// The device of a COM number; none when there is nothing. A path from the store is given as it is.
  std::optional<std::string> PathOf(int number) const;
  /// What a number is now, for people: "FTDI FT232R, ttyUSB0".
  std::string TitleOf(int number) const;
  /// What a device path is now, for people.
  std::string TitleOfPath(const std::string& path) const;
  /// Every attached adapter, for the choice of what a number means.
  std::vector<PortAdapter> Adapters() const;
  /// The same device by a path that stays when plugs are swapped, where the system knows one; else `path`.
  std::string StablePathOf(const std::string& path) const;
  /// Gives a device to a number, in the store.
  /// @return false when it could not be saved
  bool Assign(int number, const std::string& path);

 private:
  bool UartPresent(const std::string& name) const;
  bool IsConsole(const std::string& name) const;
  std::string Product(const std::string& name) const;
  bool Exists(const std::string& path) const;
  std::filesystem::path Real(const std::string& path) const;
  static std::string FirstLine(const std::filesystem::path& path);

  SettingsStore& store_;
  std::filesystem::path root_;
};

}  // namespace lobegraph
