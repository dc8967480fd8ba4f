#pragma once

#include <string>

namespace lobegraph {

/// A queue of the print system, which alone knows what became of a job: the toolkit that sends jobs reports
/// success even when they are thrown away.
class PrintQueue {
 public:
  /// @param printer a queue's name, or "queue/instance"
  explicit PrintQueue(const std::string& printer) : name_(printer.substr(0, printer.find('/'))) {}

  const std::string& Name() const { return name_; }
  /// Notes the user's newest job. @return false when the print system does not answer
  bool Note();
  /// Whether a job has come since and was neither aborted nor cancelled. A job that is held, or waits for a
  /// stopped queue, has come.
  bool TookJob() const;

 private:
  std::string name_;
  int newest_ = 0;  ///< the highest job number when it was noted; 0 for none
};

}  // namespace lobegraph
