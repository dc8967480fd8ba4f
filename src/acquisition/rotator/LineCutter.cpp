#include "acquisition/rotator/LineCutter.h"

namespace lobegraph {

void LineCutter::Take(std::string_view bytes) {
  bytes_ += bytes;
  const std::size_t unfinished = bytes_.rfind('\n') + 1;  // 0 when no line ends here
  // One character too many marks the line; the others of it need not be kept.
  if (bytes_.size() - unfinished > longest_) bytes_.resize(unfinished + longest_ + 1);
}

std::optional<std::string> LineCutter::Next() {
  for (std::size_t end = bytes_.find('\n'); end != std::string::npos; end = bytes_.find('\n')) {
    std::string line = bytes_.substr(0, end);
    bytes_.erase(0, end + 1);
    if (line.size() <= longest_) return line;
  }
  return std::nullopt;
}

}  // namespace lobegraph
