#pragma once

#include <string>
#include <string_view>

namespace lobegraph {

/// A file that a running program holds: no other running program takes it for an old one. The hold ends with
/// the object, or with the process however that ends.
class HeldFile {
 public:
  /// How a file comes to be.
  enum class Open {
    New,       ///< a file of this name must not be there yet
    Existing,  ///< it must be there
  };

  /// @throws RunTimeError 58 (File already exists) for a New one that is there, 61, 75, 76
  HeldFile(const std::string& path, Open how);
  HeldFile(const HeldFile&) = delete;
  HeldFile& operator=(const HeldFile&) = delete;
  ~HeldFile();

  /// The whole new content at its old place: a matter of microseconds, where replacing it by rename can wait
  /// for the disk. Safe against a kill of the process, not against a power cut. @throws RunTimeError 61, 75
  void Rewrite(std::string_view bytes) const;
  /// More at the end. @throws RunTimeError 61, 75
  void Append(std::string_view bytes);

 private:
  void WriteAt(std::string_view bytes, long long offset) const;

  std::string path_;
  int handle_ = -1;
  long long end_ = 0;
};

/// Whether another object, of this process or another, holds the file now.
bool HeldElsewhere(const std::string& path);

}  // namespace lobegraph
