#include "cli/Command.h"

#include "data/base/TextEncoding.h"

namespace lobegraph {

std::string ComplaintAbout(const std::string& file, const std::string& reason) {
  return PrintableText("lobegraph-cli: " + file + ": " + reason) + "\n";
}

std::string ComplaintAbout(const std::string& file, const RunTimeError& error) {
  const std::string advice = error.AdviceText().empty() ? "" : ": " + error.AdviceText();
  return ComplaintAbout(
      file, "Error " + std::to_string(error.Number()) + " (" + error.Description() + ")" + advice);
}

}  // namespace lobegraph
