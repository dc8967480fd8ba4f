#include "acquisition/levels/LevelWorker.h"

#include <iterator>
#include <utility>

namespace lobegraph {

LevelWorker::LevelWorker(const LevelChoice& choice, double samplesPerSecond, double readingSeconds,
                         Thread thread)
    : meter_(choice, samplesPerSecond, readingSeconds),
      ownThread_(thread == Thread::Own),
      status_(meter_.Status()) {
  if (ownThread_) thread_ = std::thread([this] { Work(); });
}

LevelWorker::~LevelWorker() {
  {
    const std::scoped_lock lock(mutex_);
    ended_ = true;
  }
  work_.notify_one();
  if (thread_.joinable()) thread_.join();
}

void LevelWorker::Hear(std::span<const std::int16_t> interleaved, std::int64_t nowMs) {
  Post([sound = std::vector<std::int16_t>(interleaved.begin(), interleaved.end()), nowMs](LevelMeter& meter) {
    meter.Hear(sound, nowMs);
  });
}

void LevelWorker::HearGap(std::int64_t frames, std::int64_t nowMs) {
  Post([frames, nowMs](LevelMeter& meter) { meter.HearGap(frames, nowMs); });
}

void LevelWorker::Open(std::int64_t timeMs) {
  Post([timeMs](LevelMeter& meter) { meter.Open(timeMs); });
}

void LevelWorker::Close(std::int64_t timeMs) {
  Post([timeMs](LevelMeter& meter) { meter.Close(timeMs); });
}

void LevelWorker::CloseLast(std::int64_t timeMs) {
  Post([timeMs](LevelMeter& meter) { meter.CloseLast(timeMs); });
}

std::vector<MeasuredReading> LevelWorker::Take() {
  const std::scoped_lock lock(mutex_);
  return std::exchange(measured_, {});
}

LevelStatus LevelWorker::Status() const {
  const std::scoped_lock lock(mutex_);
  return status_;
}

float LevelWorker::Level() const {
  const std::scoped_lock lock(mutex_);
  return status_.Level;
}

void LevelWorker::Post(Task task) {
  if (!ownThread_) return Run(task);
  {
    const std::scoped_lock lock(mutex_);
    tasks_.push_back(std::move(task));
  }
  work_.notify_one();
}

void LevelWorker::Work() {
  std::unique_lock lock(mutex_);
  while (true) {
    work_.wait(lock, [this] { return ended_ || !tasks_.empty(); });
    if (ended_) return;
    const Task task = std::move(tasks_.front());
    tasks_.pop_front();
    lock.unlock();
    Run(task);
    lock.lock();
  }
}

void LevelWorker::Run(const Task& task) {
  task(meter_);
  std::vector<MeasuredReading> measured = meter_.Take();
  const std::scoped_lock lock(mutex_);
  std::ranges::move(measured, std::back_inserter(measured_));
  status_ = meter_.Status();
}

}  // namespace lobegraph
