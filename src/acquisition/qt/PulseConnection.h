#pragma once

#include <pulse/pulseaudio.h>

#include <functional>
#include <memory>
#include <string>

namespace lobegraph {

/// A connection to the sound server, on a thread of the client library's own. Never starts a server.
class PulseConnection {
 public:
  /// @param lost called on that thread, once, when an established connection ends; with the reason.
  explicit PulseConnection(std::function<void(const std::string& reason)> lost);
  ~PulseConnection();
  PulseConnection(const PulseConnection&) = delete;
  PulseConnection& operator=(const PulseConnection&) = delete;

  /// @throws CaptureError when no server answers within 2 seconds.
  void Connect();

  /// Held while anything of the connection is touched from outside its thread.
  class Lock {
   public:
    explicit Lock(PulseConnection& connection) : loop_(connection.loop_.get()) {
      pa_threaded_mainloop_lock(loop_);
    }
    ~Lock() { pa_threaded_mainloop_unlock(loop_); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

   private:
    pa_threaded_mainloop* loop_;
  };

  /// Under a Lock: waits until reached() holds, which is looked at after each Signal.
  /// @throws CaptureError when the connection ends or after 2 seconds.
  void WaitUntil(const std::function<bool()>& reached);
  /// On the connection's thread: something changed.
  void Signal() { pa_threaded_mainloop_signal(loop_.get(), 0); }
  /// Under a Lock: waits for an operation that was asked for, and releases it.
  void Finish(pa_operation* operation);

  pa_context* Context() const { return context_.get(); }
  /// What the library says of the last call that failed.
  std::string LastError() const { return pa_strerror(pa_context_errno(context_.get())); }

 private:
  struct Release {
    void operator()(pa_threaded_mainloop* loop) const { pa_threaded_mainloop_free(loop); }
    void operator()(pa_context* context) const { pa_context_unref(context); }
  };

  static void StateChanged(pa_context* context, void* self);
  bool Ended() const { return !PA_CONTEXT_IS_GOOD(pa_context_get_state(context_.get())); }

  std::unique_ptr<pa_threaded_mainloop, Release> loop_;
  std::unique_ptr<pa_context, Release> context_;
  std::function<void(const std::string&)> lost_;
  bool established_ = false;
};

}  // namespace lobegraph
