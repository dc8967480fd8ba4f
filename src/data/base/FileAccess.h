#pragma once

#include <istream>
#include <limits>
#include <memory>
#include <string>
#include <string_view>

namespace lobegraph {

/// What a command does with files; replaced in tests by one that fails where the test says.
class FileAccess {
 public:
  virtual ~FileAccess() = default;

  /// The bytes of a plain file of at most kLargestFile.
  /// @throws RunTimeError 53 (no such file), 76 (no such folder), 75 (a directory, a device, no right to
  /// read; a larger file, which is named with its size).
  virtual std::string Read(const std::string& path) = 0;
  /// A plain file to be read piece by piece.
  /// @param largest bytes: a larger file is refused as Read does
  /// @throws RunTimeError as Read
  virtual std::unique_ptr<std::istream> Open(const std::string& path, std::size_t largest);
  /// Whether a file of exactly this name is there.
  virtual bool Exists(const std::string& path) = 0;
  /// New content in one step. @throws RunTimeError 61, 75, 76; the old content then stands.
  virtual void Replace(const std::string& path, std::string_view bytes) = 0;
  /// Takes a file away; nothing when there is none. @throws RunTimeError 75 (no right to, a folder).
  virtual void Remove(const std::string& path) = 0;

  /// No pattern file and no list of readings comes near it; one endless line must not fill the memory.
  static constexpr std::size_t kLargestFile = 1U << 20U;
  static constexpr std::size_t kAnySize = std::numeric_limits<std::size_t>::max();
};

/// The files of this computer.
class DiskFiles : public FileAccess {
 public:
  std::string Read(const std::string& path) override;
  std::unique_ptr<std::istream> Open(const std::string& path, std::size_t largest) override;
  bool Exists(const std::string& path) override;
  void Replace(const std::string& path, std::string_view bytes) override;
  void Remove(const std::string& path) override;
};

/// What follows the last "/" or "\" of a path; the whole path when there is none.
std::string FileNameOf(std::string_view path);

/// Whether the last characters of a path are an ending, in any letter case.
bool HasEnding(std::string_view path, std::string_view ending);

/// The path with ".lbg" (or another ending with its point) added unless its last characters are that, in any
/// letter case.
std::string WithEnding(std::string path, std::string_view ending);

}  // namespace lobegraph
