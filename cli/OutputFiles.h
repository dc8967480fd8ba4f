#pragma once

#include "data/base/FileAccess.h"

namespace lobegraph {

/// The files of this computer, written as the window's Save writes them, but without a wait for the disk:
/// what is written here can be made again from its source. Into a pipe or a device it is written.
class OutputFiles : public DiskFiles {
 public:
  void Replace(const std::string& path, std::string_view bytes) override;
};

}  // namespace lobegraph
