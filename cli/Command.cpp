#include "cli/Command.h"

namespace lobegraph {

std::string ComplaintAbout(const std::string& file, const std::string& reason) {
  std::string line = "lobegraph-cli: " + file + ": " + reason;
  for (char& c : line)
    if (c == '\n' || c == '\r') c = ' ';
  return line + "\n";
}

std::string ComplaintAbout(const std::string& file, const RunTimeError& error) {
  const std::string advice = error.AdviceText().empty() ? "" : ": " + error.AdviceText();
  return ComplaintAbout(
      file, "Error " + std::to_string(error.Number()) + " (" + error.Description() + ")" + advice);
}

}  // namespace lobegraph
