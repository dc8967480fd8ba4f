#include "cli/FileBatch.h"

#include <condition_variable>
#include <exception>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace lobegraph {
namespace {

constexpr std::size_t kWaitingPerJob = 64;

/// The results between the workers and the calling thread: a ring with a place for each file that may be
/// ahead of the one to deliver next.
class Ring {
 public:
  Ring(std::size_t count, std::size_t places) : count_(count), places_(places) {}

  std::size_t Count() const { return count_; }

  /// The next file to work on; the count when all are taken or the run has failed. Waits for a free place.
  std::size_t Take() {
    std::unique_lock lock(mutex_);
    delivered_.wait(lock, [&] { return next_ < first_ + places_.size() || failure_ || next_ == count_; });
    return failure_ || next_ == count_ ? count_ : next_++;
  }

  void Put(std::size_t index, FileResult result) {
    const std::lock_guard lock(mutex_);
    places_[index % places_.size()] = std::move(result);
    if (index == first_) finished_.notify_one();
  }

  void Fail(std::exception_ptr failure) {
    const std::lock_guard lock(mutex_);
    failure_ = std::move(failure);
    finished_.notify_one();
    delivered_.notify_all();
  }

  /// The result of the next file in order. @throws what a worker has failed with
  FileResult Next() {
    std::unique_lock lock(mutex_);
    auto& place = places_[first_ % places_.size()];
    finished_.wait(lock, [&] { return place || failure_; });
    if (failure_ || !place) std::rethrow_exception(failure_);
    FileResult result = std::move(*place);
    place.reset();
    ++first_;
    delivered_.notify_one();
    return result;
  }

 private:
  std::size_t count_;
  std::mutex mutex_;
  std::condition_variable finished_;
  std::condition_variable delivered_;
  std::vector<std::optional<FileResult>> places_;
  std::size_t next_ = 0;   ///< to work on
  std::size_t first_ = 0;  ///< to deliver
  std::exception_ptr failure_;
};

void Work(Ring& ring, const FileWork& work) {
  try {
    for (std::size_t index = ring.Take(); index < ring.Count(); index = ring.Take())
      ring.Put(index, work(index));
  } catch (...) {
    ring.Fail(std::current_exception());
  }
}

}  // namespace

void RunInOrder(std::size_t count, unsigned jobs, const FileWork& work, const FileDelivery& deliver) {
  if (jobs < 2 || count < 2) {
    for (std::size_t index = 0; index < count; ++index) deliver(index, work(index));
    return;
  }
  Ring ring(count, jobs * kWaitingPerJob);
  std::vector<std::jthread> workers;
  for (unsigned job = 0; job < jobs; ++job) workers.emplace_back([&] { Work(ring, work); });
  try {
    for (std::size_t index = 0; index < count; ++index) deliver(index, ring.Next());
  } catch (...) {
    ring.Fail(std::current_exception());  // the workers stop before the ring goes
    throw;
  }
}

}  // namespace lobegraph
