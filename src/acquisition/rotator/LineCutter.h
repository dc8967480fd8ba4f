#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace lobegraph {

/// Cuts what arrives into lines, wherever it was torn apart. A line that is too long is dropped whole and
/// costs no memory.
class LineCutter {
 public:
  explicit LineCutter(std::size_t longest) : longest_(longest) {}

  void Take(std::string_view bytes);
  /// The next whole line without its line feed; none when there is none yet.
  std::optional<std::string> Next();

 private:
  std::size_t longest_;
  std::string bytes_;
};

}  // namespace lobegraph
