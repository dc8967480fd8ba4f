#include "acquisition/qt/PulseCapture.h"

#include <QMetaObject>
#include <algorithm>
#include <array>

namespace lobegraph {
namespace {

constexpr const char* kStreamName = "Antenna level";
constexpr const char* kInputGone = "The sound input has gone.";
constexpr const char* kInputMoved = "The sound input was changed to another one.";
constexpr auto kServerDecides = static_cast<std::uint32_t>(-1);

/// The server moves a stream whose source goes, unless it is told not to: then the stream fails.
pa_stream_flags_t StreamFlags(bool followsMoves) {
  const auto flags = PA_STREAM_START_CORKED | PA_STREAM_ADJUST_LATENCY;
  return static_cast<pa_stream_flags_t>(followsMoves ? flags : flags | PA_STREAM_DONT_MOVE);
}

void KeepDefaultSource(pa_context*, const pa_server_info* info, void* name) {
  if (info && info->default_source_name) *static_cast<std::string*>(name) = info->default_source_name;
}

void KeepDescription(pa_context*, const pa_source_info* info, int, void* description) {
  if (info && info->description) *static_cast<std::string*>(description) = info->description;
}

void KeepSuccess(pa_stream*, int success, void* kept) { *static_cast<bool*>(kept) = success != 0; }

pa_sample_spec SampleSpec(const WaveFormat& format) {
  if (format.BitsPerSample != 16) throw CaptureError("Only 16-bit samples can be captured.");
  return {PA_SAMPLE_S16NE, static_cast<std::uint32_t>(format.SamplesPerSecond),
          static_cast<std::uint8_t>(format.Channels)};
}

/// A gap in the stream is silence of the same length.
void WriteSilence(SoundRing& ring, std::size_t bytes) {
  constexpr std::array<std::byte, 1764> kSilence{};
  for (std::size_t left = bytes; left > 0; left -= std::min(left, kSilence.size()))
    ring.Write(std::span(kSilence).first(std::min(left, kSilence.size())));
}

}  // namespace

void PulseCapture::ConnectToServer() {
  Close();
  window_ = std::make_unique<QObject>();
  connection_ = std::make_unique<PulseConnection>([this](const std::string& reason) { Fail(reason); });
  connection_->Connect();
}

std::string PulseCapture::FirstDevice() {
  ConnectToServer();
  const PulseConnection::Lock lock(*connection_);
  std::string name;
  connection_->Finish(pa_context_get_server_info(connection_->Context(), &KeepDefaultSource, &name));
  if (name.empty()) throw CaptureError("The sound server has no input.");
  return name;
}

void PulseCapture::Open(const std::string& identifier, const CaptureBuffer& buffer,
                        CaptureListener& listener) {
  if (!connection_) ConnectToServer();
  listener_ = &listener;
  followsMoves_ = buffer.FollowsMoves;
  ring_ = std::make_unique<SoundRing>(buffer, [this] { Post(&PulseCapture::DeliverNotices); });
  const PulseConnection::Lock lock(*connection_);
  AskDescription(identifier);
  CreateStream(buffer.Format);
  ConnectStream(identifier, buffer.HalfBytes);
}

void PulseCapture::AskDescription(const std::string& identifier) {
  std::string description;
  connection_->Finish(pa_context_get_source_info_by_name(connection_->Context(), identifier.c_str(),
                                                         &KeepDescription, &description));
  if (description.empty()) throw CaptureError("The sound server has no input named \"" + identifier + "\".");
  description_ = description;
}

void PulseCapture::CreateStream(const WaveFormat& format) {
  const pa_sample_spec spec = SampleSpec(format);
  stream_.reset(pa_stream_new(connection_->Context(), kStreamName, &spec, nullptr));
  if (!stream_) throw CaptureError("The sound input cannot be opened (" + connection_->LastError() + ").");
  pa_stream_set_read_callback(
      stream_.get(),
      [](pa_stream*, std::size_t, void* self) { static_cast<PulseCapture*>(self)->TakeAudio(); }, this);
}

void PulseCapture::ConnectStream(const std::string& identifier, std::int32_t fragmentBytes) {
  pa_stream_set_state_callback(
      stream_.get(),
      [](pa_stream* stream, void* self) {
        auto* capture = static_cast<PulseCapture*>(self);
        const bool serverIsThere = PA_CONTEXT_IS_GOOD(pa_context_get_state(pa_stream_get_context(stream)));
        if (serverIsThere && !PA_STREAM_IS_GOOD(pa_stream_get_state(stream))) capture->Fail(kInputGone);
        capture->connection_->Signal();
      },
      this);
  pa_stream_set_moved_callback(
      stream_.get(), [](pa_stream*, void* self) { static_cast<PulseCapture*>(self)->Moved(); }, this);
  const pa_buffer_attr attributes{kServerDecides, kServerDecides, kServerDecides, kServerDecides,
                                  static_cast<std::uint32_t>(fragmentBytes)};
  const bool asked = pa_stream_connect_record(stream_.get(), identifier.c_str(), &attributes,
                                              StreamFlags(followsMoves_)) == 0;
  const auto state = [this] { return pa_stream_get_state(stream_.get()); };
  if (asked) connection_->WaitUntil([state] { return state() != PA_STREAM_CREATING; });
  if (!asked || state() != PA_STREAM_READY)
    throw CaptureError("The sound input cannot be opened (" + connection_->LastError() + ").");
}

void PulseCapture::Start() {
  if (!stream_) throw CaptureError("No sound input is open.");
  const PulseConnection::Lock lock(*connection_);
  bool running = false;
  connection_->Finish(pa_stream_cork(stream_.get(), 0, &KeepSuccess, &running));
  if (!running) throw CaptureError("The sound input cannot be started (" + connection_->LastError() + ").");
}

void PulseCapture::Stop() noexcept {
  if (!stream_) return;
  const PulseConnection::Lock lock(*connection_);
  if (pa_operation* corking = pa_stream_cork(stream_.get(), 1, nullptr, nullptr)) pa_operation_unref(corking);
  ring_->NoteStopped();
}

void PulseCapture::Close() noexcept {
  if (stream_) {
    const PulseConnection::Lock lock(*connection_);
    pa_stream_set_read_callback(stream_.get(), nullptr, nullptr);
    pa_stream_set_state_callback(stream_.get(), nullptr, nullptr);
    pa_stream_set_moved_callback(stream_.get(), nullptr, nullptr);
    pa_stream_disconnect(stream_.get());
    stream_.reset();
  }
  connection_.reset();
  window_.reset();
  ring_.reset();
  listener_ = nullptr;
  failure_.clear();
}

void PulseCapture::TakeAudio() {
  const void* audio = nullptr;
  std::size_t bytes = 0;
  while (pa_stream_peek(stream_.get(), &audio, &bytes) == 0 && bytes > 0) {
    if (audio)
      ring_->Write({static_cast<const std::byte*>(audio), bytes});
    else
      WriteSilence(*ring_, bytes);
    pa_stream_drop(stream_.get());
  }
}

/// On the connection's thread, where nothing may be waited for.
void PulseCapture::Moved() {
  if (!followsMoves_) return Fail(kInputMoved);
  const auto named = [](pa_context*, const pa_source_info* info, int, void* self) {
    if (!info || !info->description) return;
    static_cast<PulseCapture*>(self)->movedTo_ = info->description;
    static_cast<PulseCapture*>(self)->Post(&PulseCapture::DeliverMove);
  };
  const char* name = pa_stream_get_device_name(stream_.get());
  if (pa_operation* asked = pa_context_get_source_info_by_name(connection_->Context(), name, named, this))
    pa_operation_unref(asked);
}

void PulseCapture::DeliverMove() {
  const PulseConnection::Lock lock(*connection_);
  description_ = movedTo_;
}

void PulseCapture::Fail(const std::string& reason) {
  if (!failure_.empty()) return;
  failure_ = reason;
  Post(&PulseCapture::DeliverFailure);
}

void PulseCapture::Post(void (PulseCapture::*delivery)()) {
  QMetaObject::invokeMethod(
      window_.get(),
      [this, delivery] {
        if (gate_ == nullptr) return (this->*delivery)();
        gate_->Pass(*window_, [this, delivery] { (this->*delivery)(); });
      },
      Qt::QueuedConnection);
}

void PulseCapture::DeliverNotices() {
  for (const std::int32_t eventHandle : ring_->TakeNotices())
    listener_->DirectXEvent8_DXCallback(eventHandle);
}

void PulseCapture::DeliverFailure() {
  if (listener_) listener_->CaptureFailed(failure_);
}

}  // namespace lobegraph
