#pragma once

#include <string>
#include <string_view>

namespace lobegraph {

/// A file of the program's own that is written anew at its old place while its content grows: a matter of
/// microseconds, where replacing it by rename can wait for the disk. Safe against a kill of the process, not
/// against a power cut.
class GrowingFile {
 public:
  /// Creates the file, empty; its folder exists. @throws RunTimeError 61, 75, 76
  explicit GrowingFile(const std::string& path);
  GrowingFile(const GrowingFile&) = delete;
  GrowingFile& operator=(const GrowingFile&) = delete;
  ~GrowingFile();

  /// The whole new content. @throws RunTimeError 61, 75
  void Rewrite(std::string_view bytes) const;

 private:
  std::string path_;
  int handle_ = -1;
};

}  // namespace lobegraph
