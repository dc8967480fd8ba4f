#include "cli/PortsCommand.h"

#include <filesystem>
#include <iomanip>
#include <set>

#include "data/base/TextEncoding.h"

namespace lobegraph {
namespace {

struct Line {
  std::string Number = {};
  std::string Path = {};
  std::string Title = {};
};

std::vector<Line> LinesOf(const ComPorts& ports) {
  std::vector<Line> lines;
  std::set<std::string> numbered;
  for (int number = 1; number <= kHighestComNumber; ++number) {
    const std::optional<std::string> path = ports.PathOf(number);
    if (!path) continue;
    lines.push_back({"COM" + std::to_string(number), *path, ports.TitleOf(number)});
    numbered.insert(ports.StablePathOf(*path));
  }
  for (const PortAdapter& adapter : ports.Adapters())
    if (!numbered.contains(adapter.Path)) lines.push_back({"-", adapter.Path, adapter.Title});
  return lines;
}

int List(const ComPorts& ports, const CommandParts& parts) {
  constexpr int kNumberWidth = 7;
  const std::vector<Line> lines = LinesOf(ports);
  std::size_t width = 0;
  for (const Line& line : lines) width = std::max(width, line.Path.size());
  for (const Line& line : lines)
    parts.Output << std::left << std::setw(kNumberWidth) << line.Number
                 << std::setw(static_cast<int>(width) + 2) << line.Path << PrintableText(line.Title) << '\n';
  if (lines.empty()) parts.Complaints << "lobegraph-cli: no serial port or adapter is there\n";
  return kAllDone;
}

int Assign(const PortAssignment& assignment, ComPorts& ports, const CommandParts& parts) {
  const std::string name = "COM" + std::to_string(assignment.Number);
  const std::string path = ports.StablePathOf(std::filesystem::absolute(assignment.Path).lexically_normal());
  if (!ports.Assign(assignment.Number, path)) {
    parts.Complaints << ComplaintAbout(name, "the settings cannot be written; see disk space and rights");
    return kSomeFailed;
  }
  parts.Output << name << " is now " << path << " (" << ports.TitleOfPath(path) << ")\n";
  return kAllDone;
}

}  // namespace

int RunPorts(const PortsRequest& request, ComPorts& ports, const CommandParts& parts) {
  return request.Assignment ? Assign(*request.Assignment, ports, parts) : List(ports, parts);
}

}  // namespace lobegraph
