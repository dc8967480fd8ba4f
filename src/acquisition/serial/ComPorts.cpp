#include "acquisition/serial/ComPorts.h"

#include <algorithm>
#include <fstream>
#include <sstream>

#include "settings/SettingsTable.h"

namespace lobegraph {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPortsSection = "Ports";
constexpr const char* kUartTable = "sys/class/tty";
constexpr const char* kNothing = "nothing is there now";

std::string KeyOf(int number) { return "COM" + std::to_string(number); }

bool IsAdapterName(const std::string& name) {
  return name.starts_with("ttyUSB") || name.starts_with("ttyACM");
}

/// Names in a folder, sorted; none for a folder that is not there.
std::vector<std::string> NamesIn(const fs::path& folder) {
  std::vector<std::string> names;
  std::error_code ignored;
  for (fs::directory_iterator at(folder, ignored), end; at != end; at.increment(ignored))
    names.push_back(at->path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace

std::optional<std::string> ComPorts::PathOf(int number) const {
  const std::string own = store_.Get(kLobegraphApplication, kPortsSection, KeyOf(number), "");
  if (!own.empty()) return own;
  const std::string index = std::to_string(number - 1);
  if (UartPresent("ttyS" + index)) return "/dev/ttyS" + index;
  for (const char* kind : {"ttyUSB", "ttyACM"}) {
    const std::string path = "/dev/" + (kind + index);
    if (Exists(path)) return path;
  }
  return std::nullopt;
}

std::string ComPorts::TitleOf(int number) const {
  const std::optional<std::string> path = PathOf(number);
  return path ? TitleOfPath(*path) : kNothing;
}

std::string ComPorts::TitleOfPath(const std::string& path) const {
  if (!Exists(path)) return kNothing;
  const std::string name = Real(path).filename().string();
  const std::string product = Product(name);
  return product.empty() ? name : product + ", " + name;
}

std::vector<PortAdapter> ComPorts::Adapters() const {
  std::vector<PortAdapter> adapters;
  for (const std::string& name : NamesIn(root_ / "dev")) {
    if (!IsAdapterName(name)) continue;
    const std::string path = StablePathOf("/dev/" + name);
    adapters.push_back({path, TitleOfPath(path)});
  }
  for (const std::string& name : NamesIn(root_ / kUartTable))
    if (UartPresent(name)) adapters.push_back({"/dev/" + name, TitleOfPath("/dev/" + name)});
  return adapters;
}

bool ComPorts::Assign(int number, const std::string& path) {
  return store_.Save(kLobegraphApplication, kPortsSection, KeyOf(number), path);
}

/// The kernel lists places for UARTs that no machine has; their type is 0.
bool ComPorts::UartPresent(const std::string& name) const {
  if (!name.starts_with("ttyS")) return false;
  const std::string type = FirstLine(root_ / kUartTable / name / "type");
  return !type.empty() && type != "0" && !IsConsole(name);
}

bool ComPorts::IsConsole(const std::string& name) const {
  std::istringstream names(FirstLine(root_ / kUartTable / "console" / "active"));
  for (std::string console; names >> console;)
    if (console == name) return true;
  return false;
}

/// Maker and product, from the nearest device above the port that has them.
std::string ComPorts::Product(const std::string& name) const {
  if (name.starts_with("ttyS")) return "Serial port of this computer";
  std::error_code ignored;
  fs::path folder = fs::canonical(root_ / kUartTable / name / "device", ignored);
  for (; folder.has_relative_path(); folder = folder.parent_path()) {
    const std::string product = FirstLine(folder / "product");
    if (product.empty()) continue;
    const std::string maker = FirstLine(folder / "manufacturer");
    return maker.empty() ? product : std::string(maker).append(" ").append(product);
  }
  return "";
}

bool ComPorts::Exists(const std::string& path) const {
  std::error_code ignored;
  return fs::exists(root_ / fs::path(path).relative_path(), ignored);
}

std::string ComPorts::StablePathOf(const std::string& path) const {
  const fs::path folder = "/dev/serial/by-id";
  const fs::path device = Real(path);
  if (device.empty()) return path;
  for (const std::string& link : NamesIn(root_ / folder.relative_path()))
    if (Real((folder / link).string()) == device) return (folder / link).string();
  return path;
}

std::filesystem::path ComPorts::Real(const std::string& path) const {
  std::error_code ignored;
  return fs::canonical(root_ / fs::path(path).relative_path(), ignored);
}

std::string ComPorts::FirstLine(const std::filesystem::path& path) {
  std::ifstream file(path);
  std::string line;
  std::getline(file, line);
  return line;
}

}  // namespace lobegraph
