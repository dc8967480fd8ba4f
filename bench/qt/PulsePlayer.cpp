#include "bench/qt/PulsePlayer.h"

#include <csignal>
#include <utility>
#include <vector>

namespace lobegraph {
namespace {

constexpr pa_usec_t kLongestWait = 2 * PA_USEC_PER_SEC;
constexpr auto kServerDecides = static_cast<std::uint32_t>(-1);
constexpr auto kFlags = static_cast<pa_stream_flags_t>(
    PA_STREAM_ADJUST_LATENCY | PA_STREAM_INTERPOLATE_TIMING | PA_STREAM_AUTO_TIMING_UPDATE);

}  // namespace

PulsePlayer::PulsePlayer(std::string sink, const PlayedFormat& format, NextSamples nextSamples)
    : sink_(std::move(sink)),
      format_(format),
      nextSamples_(std::move(nextSamples)),
      loop_(pa_mainloop_new()),
      context_(pa_context_new(pa_mainloop_get_api(loop_.get()), "lobegraph-bench")) {}

PulsePlayer::~PulsePlayer() {
  if (stream_) pa_stream_set_state_callback(stream_.get(), nullptr, nullptr);
  pa_context_set_state_callback(context_.get(), nullptr, nullptr);
  pa_context_disconnect(context_.get());
  pa_signal_done();
}

void PulsePlayer::Run() {
  EndOnSignals();
  LimitTheWait();
  pa_context_set_state_callback(
      context_.get(), [](pa_context*, void* self) { static_cast<PulsePlayer*>(self)->ContextChanged(); },
      this);
  if (pa_context_connect(context_.get(), nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0)
    End("No sound server answers (" + LastError() + ").");
  pa_mainloop_run(loop_.get(), nullptr);
  if (!error_.empty()) throw PlayerError(error_);
}

void PulsePlayer::EndOnSignals() {
  pa_signal_init(pa_mainloop_get_api(loop_.get()));
  for (const int number : {SIGINT, SIGTERM})
    pa_signal_new(
        number,
        [](pa_mainloop_api*, pa_signal_event*, int, void* self) { static_cast<PulsePlayer*>(self)->End(); },
        this);
}

void PulsePlayer::LimitTheWait() {
  pa_context_rttime_new(
      context_.get(), pa_rtclock_now() + kLongestWait,
      [](pa_mainloop_api* api, pa_time_event* event, const timeval*, void* self) {
        auto* player = static_cast<PulsePlayer*>(self);
        api->time_free(event);
        if (!player->playing_) player->End("The sound server does not answer within 2 seconds.");
      },
      this);
}

void PulsePlayer::ContextChanged() {
  const pa_context_state_t state = pa_context_get_state(context_.get());
  if (state == PA_CONTEXT_READY) return CreateStream();
  if (PA_CONTEXT_IS_GOOD(state)) return;
  End(playing_ ? "The sound server has gone (" + LastError() + ")."
               : "No sound server answers (" + LastError() + ").");
}

void PulsePlayer::CreateStream() {
  const pa_sample_spec spec{PA_SAMPLE_S16NE, format_.SamplesPerSecond, format_.Channels};
  const auto frameBytes = static_cast<std::uint32_t>(pa_frame_size(&spec));
  stream_.reset(pa_stream_new(context_.get(), "Antenna", &spec, nullptr));
  if (!stream_) return End("The sound server refuses (" + LastError() + ").");
  pa_stream_set_state_callback(
      stream_.get(), [](pa_stream*, void* self) { static_cast<PulsePlayer*>(self)->StreamChanged(); }, this);
  pa_stream_set_write_callback(
      stream_.get(),
      [](pa_stream*, std::size_t bytes, void* self) { static_cast<PulsePlayer*>(self)->Write(bytes); }, this);
  pa_stream_set_underflow_callback(
      stream_.get(), [](pa_stream*, void* self) { ++static_cast<PulsePlayer*>(self)->gaps_; }, this);
  const pa_buffer_attr attributes{kServerDecides, format_.SamplesPerSecond / 10 * frameBytes, kServerDecides,
                                  kServerDecides, kServerDecides};
  if (pa_stream_connect_playback(stream_.get(), sink_.empty() ? nullptr : sink_.c_str(), &attributes, kFlags,
                                 nullptr, nullptr) < 0)
    End("The sound server refuses (" + LastError() + ").");
}

void PulsePlayer::StreamChanged() {
  const pa_stream_state_t state = pa_stream_get_state(stream_.get());
  const bool serverIsThere = PA_CONTEXT_IS_GOOD(pa_context_get_state(context_.get()));
  if (state == PA_STREAM_READY) playing_ = true;
  if (PA_STREAM_IS_GOOD(state) || !serverIsThere) return;
  if (playing_) return End("The sink has gone.");
  End(sink_.empty() ? "The sound server has no sink (" + LastError() + ")."
                    : "The sound server has no sink named \"" + sink_ + "\" (" + LastError() + ").");
}

void PulsePlayer::Write(std::size_t bytes) {
  if (ended_) return;
  const std::size_t frames = bytes / (sizeof(std::int16_t) * format_.Channels);
  std::vector<std::int16_t> samples(frames * format_.Channels);
  const bool more = nextSamples_(samples, HeardInS());
  pa_stream_write(stream_.get(), samples.data(), samples.size() * sizeof(std::int16_t), nullptr, 0,
                  PA_SEEK_RELATIVE);
  if (!more) Drain();
}

double PulsePlayer::HeardInS() const {
  pa_usec_t latency = 0;
  int negative = 0;
  if (pa_stream_get_latency(stream_.get(), &latency, &negative) < 0 || negative != 0) return 0;
  return static_cast<double>(latency) / PA_USEC_PER_SEC;
}

void PulsePlayer::Drain() {
  ended_ = true;
  pa_stream_set_underflow_callback(stream_.get(), nullptr, nullptr);
  pa_operation* draining = pa_stream_drain(
      stream_.get(), [](pa_stream*, int, void* self) { static_cast<PulsePlayer*>(self)->End(); }, this);
  if (!draining) return End();
  pa_operation_unref(draining);
}

void PulsePlayer::End(const std::string& error) {
  ended_ = true;
  if (error_.empty()) error_ = error;
  pa_mainloop_quit(loop_.get(), 0);
}

}  // namespace lobegraph
