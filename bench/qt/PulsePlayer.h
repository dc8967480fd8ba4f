#pragma once

#include <pulse/pulseaudio.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>

namespace lobegraph {

/// Says what the sound server refused.
class PlayerError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// What a sink is sent: 16-bit samples, channels in turn.
struct PlayedFormat {
  std::uint32_t SamplesPerSecond = 44100;
  std::uint8_t Channels = 2;
};

/// Plays audio into a sink, a tenth of a second ahead at most, until the audio ends
/// or the process is asked to end (SIGINT, SIGTERM). Never starts a server.
class PulsePlayer {
 public:
  /// Fills the span with the next samples. @param heardInS when the first of them will sound, as far as the
  /// server knows. @return false when there are no more
  using NextSamples = std::function<bool(std::span<std::int16_t>, double heardInS)>;

  PulsePlayer(std::string sink, const PlayedFormat& format, NextSamples nextSamples);
  ~PulsePlayer();
  PulsePlayer(const PulsePlayer&) = delete;
  PulsePlayer& operator=(const PulsePlayer&) = delete;

  /// @throws PlayerError when no server answers within 2 seconds, the sink does not exist, or either goes
  /// while it plays
  void Run();
  /// Times that the audio had a gap because this machine was too busy.
  int Gaps() const { return gaps_; }

 private:
  struct Release {
    void operator()(pa_mainloop* loop) const { pa_mainloop_free(loop); }
    void operator()(pa_context* context) const { pa_context_unref(context); }
    void operator()(pa_stream* stream) const { pa_stream_unref(stream); }
  };

  void EndOnSignals();
  void LimitTheWait();
  void ContextChanged();
  void StreamChanged();
  void CreateStream();
  void Write(std::size_t bytes);
  double HeardInS() const;
  void Drain();
  void End(const std::string& error = {});
  std::string LastError() const { return pa_strerror(pa_context_errno(context_.get())); }

  std::string sink_;
  PlayedFormat format_;
  NextSamples nextSamples_;
  std::unique_ptr<pa_mainloop, Release> loop_;
  std::unique_ptr<pa_context, Release> context_;
  std::unique_ptr<pa_stream, Release> stream_;
  bool playing_ = false;
  bool ended_ = false;
  int gaps_ = 0;
  std::string error_;
};

}  // namespace lobegraph
