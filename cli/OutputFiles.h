#pragma once

#include "data/base/FileAccess.h"

namespace lobegraph {

/// The files of this computer. What is written here can be made again from its source, so nobody waits for
/// the disk as the window does; a full disk or a kill still leaves the old file or the new one.
class OutputFiles : public DiskFiles {
 public:
  void Replace(const std::string& path, std::string_view bytes) override;
};

}  // namespace lobegraph
