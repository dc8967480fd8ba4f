#include "acquisition/trigger/D2xx.h"

#include <algorithm>

namespace lobegraph {

std::string TextOf(const FtDescription& buffer) {
  return {buffer.begin(), std::find(buffer.begin(), buffer.end(), '\0')};
}

FtDescription DescriptionOf(const std::string& text) {
  FtDescription buffer{};
  std::copy_n(text.begin(), std::min(text.size(), buffer.size() - 1), buffer.begin());
  return buffer;
}

}  // namespace lobegraph
