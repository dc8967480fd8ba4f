#include "app/qt/print/PrintQueue.h"

#include <cups/cups.h>

#include <algorithm>
#include <span>

namespace lobegraph {
namespace {

/// The user's jobs on a queue, the finished ones included.
class Jobs {
 public:
  explicit Jobs(const std::string& queue)
      : count_(cupsGetJobs2(CUPS_HTTP_DEFAULT, &jobs_, queue.c_str(), 1, CUPS_WHICHJOBS_ALL)) {}
  ~Jobs() { cupsFreeJobs(std::max(count_, 0), jobs_); }
  Jobs(const Jobs&) = delete;
  Jobs& operator=(const Jobs&) = delete;

  bool Known() const { return count_ >= 0; }
  std::span<const cups_job_t> All() const { return {jobs_, static_cast<std::size_t>(std::max(count_, 0))}; }

 private:
  cups_job_t* jobs_ = nullptr;
  int count_;
};

bool ThrownAway(ipp_jstate_t state) { return state == IPP_JSTATE_ABORTED || state == IPP_JSTATE_CANCELED; }

}  // namespace

bool PrintQueue::Note() {
  const Jobs jobs(name_);
  newest_ = 0;
  for (const cups_job_t& job : jobs.All()) newest_ = std::max(newest_, job.id);
  return jobs.Known();
}

bool PrintQueue::TookJob() const {
  const Jobs jobs(name_);
  const auto all = jobs.All();
  return std::any_of(all.begin(), all.end(),
                     [this](const cups_job_t& job) { return job.id > newest_ && !ThrownAway(job.state); });
}

}  // namespace lobegraph
