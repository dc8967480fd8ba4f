#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "data/base/FileAccess.h"

namespace lobegraph {

/// A file that exists only in memory, whatever name it is asked for by.
class OneFile final : public FileAccess {
 public:
  explicit OneFile(std::string bytes) : bytes_(std::move(bytes)) {}

  std::string Read(const std::string&) override { return bytes_; }
  bool Exists(const std::string&) override { return true; }
  void Replace(const std::string&, std::string_view bytes) override { bytes_ = bytes; }
  void Remove(const std::string&) override { bytes_.clear(); }

 private:
  std::string bytes_;
};

}  // namespace lobegraph
