#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace lobegraph {

/// What the work on one file leaves behind.
struct FileResult {
  std::string Output = {};     ///< for standard output
  std::string Complaint = {};  ///< for standard error; empty: none
  bool Failed = false;
};

using FileWork = std::function<FileResult(std::size_t index)>;
using FileDelivery = std::function<void(std::size_t index, const FileResult& result)>;

/// Works on files 0 to count - 1, several at a time, and delivers the results in their order from the calling
/// thread. However many files there are, only a few results wait. An exception of the work is thrown here.
/// @param jobs files at the same time, at least 1; 1 works without threads
void RunInOrder(std::size_t count, unsigned jobs, const FileWork& work, const FileDelivery& deliver);

}  // namespace lobegraph
