#pragma once

#include <QObject>
#include <memory>

#include "acquisition/qt/NoticeGate.h"
#include "acquisition/qt/PulseConnection.h"
#include "acquisition/sound/SoundDevice.h"
#include "acquisition/sound/SoundRing.h"

namespace lobegraph {

/// Capture from the sound server (PulseAudio, or PipeWire's server of the same protocol) in 10 ms fragments.
/// The server's default source counts as the first enumerated device, so what the user chose in the desktop's
/// sound settings is heard. A source that the server puts in its place is a failure, or is followed, as the
/// buffer says. Notices reach the listener as queued calls of the thread that opened the device: only while
/// that thread yields.
class PulseCapture final : public CaptureDevice {
 public:
  /// @param gate which its notices pass; outlives it, none: they pass at once
  explicit PulseCapture(NoticeGate* gate = nullptr) : gate_(gate) {}
  ~PulseCapture() override { Close(); }
  PulseCapture(const PulseCapture&) = delete;
  PulseCapture& operator=(const PulseCapture&) = delete;

  std::string FirstDevice() override;
  void Open(const std::string& identifier, const CaptureBuffer& buffer, CaptureListener& listener) override;
  void Start() override;
  void Stop() noexcept override;
  void Close() noexcept override;
  void Read(std::int32_t offset, std::span<std::byte> out) const override { ring_->Read(offset, out); }
  std::string Description() const override { return description_; }

 private:
  struct ReleaseStream {
    void operator()(pa_stream* stream) const { pa_stream_unref(stream); }
  };

  void ConnectToServer();
  void AskDescription(const std::string& identifier);
  void CreateStream(const WaveFormat& format);
  void ConnectStream(const std::string& identifier, std::int32_t fragmentBytes);
  void TakeAudio();
  void Post(void (PulseCapture::*delivery)());
  void DeliverNotices();
  void DeliverFailure();
  void DeliverMove();
  void Moved();
  void Fail(const std::string& reason);

  std::unique_ptr<PulseConnection> connection_;
  std::unique_ptr<pa_stream, ReleaseStream> stream_;
  std::unique_ptr<SoundRing> ring_;
  std::unique_ptr<QObject> window_;  ///< receives the queued calls; what still waits goes with it
  CaptureListener* listener_ = nullptr;
  std::string failure_;  ///< written on the connection's thread before its delivery is posted
  std::string description_;
  bool followsMoves_ = false;
  std::string movedTo_;  ///< written on the connection's thread before its delivery is posted
  NoticeGate* gate_;
};

}  // namespace lobegraph
