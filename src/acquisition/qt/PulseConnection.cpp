#include "acquisition/qt/PulseConnection.h"

#include <utility>

#include "acquisition/sound/SoundDevice.h"

namespace lobegraph {
namespace {

constexpr pa_usec_t kLongestWait = 2 * PA_USEC_PER_SEC;
constexpr const char* kApplicationName = "Lobegraph";

/// Signals the waiting thread once the wait has lasted too long.
class WaitLimit {
 public:
  WaitLimit(pa_threaded_mainloop* loop, pa_context* context)
      : loop_(loop),
        event_(pa_context_rttime_new(context, pa_rtclock_now() + kLongestWait, &WaitLimit::Expire, this)) {}
  ~WaitLimit() { pa_threaded_mainloop_get_api(loop_)->time_free(event_); }
  WaitLimit(const WaitLimit&) = delete;
  WaitLimit& operator=(const WaitLimit&) = delete;
  bool Expired() const { return expired_; }

 private:
  static void Expire(pa_mainloop_api*, pa_time_event*, const timeval*, void* self) {
    auto* limit = static_cast<WaitLimit*>(self);
    limit->expired_ = true;
    pa_threaded_mainloop_signal(limit->loop_, 0);
  }

  pa_threaded_mainloop* loop_;
  pa_time_event* event_;
  bool expired_ = false;
};

/// An answer that comes after nobody waits for it any more must not be written anywhere.
void Abandon(pa_operation* operation) {
  pa_operation_set_state_callback(operation, nullptr, nullptr);
  pa_operation_cancel(operation);
  pa_operation_unref(operation);
}

}  // namespace

PulseConnection::PulseConnection(std::function<void(const std::string&)> lost)
    : loop_(pa_threaded_mainloop_new()),
      context_(pa_context_new(pa_threaded_mainloop_get_api(loop_.get()), kApplicationName)),
      lost_(std::move(lost)) {
  pa_context_set_state_callback(context_.get(), &PulseConnection::StateChanged, this);
}

PulseConnection::~PulseConnection() {
  {
    const Lock lock(*this);
    pa_context_set_state_callback(context_.get(), nullptr, nullptr);
    pa_context_disconnect(context_.get());
  }
  pa_threaded_mainloop_stop(loop_.get());
}

void PulseConnection::Connect() {
  if (pa_threaded_mainloop_start(loop_.get()) < 0) throw CaptureError("The sound thread cannot be started.");
  const Lock lock(*this);
  if (pa_context_connect(context_.get(), nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0)
    throw CaptureError("No sound server answers (" + LastError() + ").");
  WaitUntil([this] { return pa_context_get_state(context_.get()) == PA_CONTEXT_READY; });
  established_ = true;
}

void PulseConnection::WaitUntil(const std::function<bool()>& reached) {
  const WaitLimit limit(loop_.get(), context_.get());
  while (!reached()) {
    if (Ended()) throw CaptureError("No sound server answers (" + LastError() + ").");
    if (limit.Expired()) throw CaptureError("The sound server does not answer within 2 seconds.");
    pa_threaded_mainloop_wait(loop_.get());
  }
}

void PulseConnection::Finish(pa_operation* operation) {
  if (!operation) throw CaptureError("The sound server refuses (" + LastError() + ").");
  const std::unique_ptr<pa_operation, decltype(&Abandon)> held(operation, &Abandon);
  pa_operation_set_state_callback(
      operation, [](pa_operation*, void* self) { static_cast<PulseConnection*>(self)->Signal(); }, this);
  WaitUntil([operation] { return pa_operation_get_state(operation) != PA_OPERATION_RUNNING; });
}

void PulseConnection::StateChanged(pa_context*, void* self) {
  auto* connection = static_cast<PulseConnection*>(self);
  if (connection->Ended() && std::exchange(connection->established_, false))
    connection->lost_("The sound server has gone (" + connection->LastError() + ").");
  connection->Signal();
}

}  // namespace lobegraph
