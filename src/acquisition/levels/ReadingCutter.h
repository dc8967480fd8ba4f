#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <vector>

namespace lobegraph {

/// A stretch of captured sound: frames of two samples, left and right.
struct SoundStretch {
  std::int64_t First = 0;             ///< count of the frames before it since capture began
  std::vector<std::int16_t> Samples;  ///< left and right in turn
  std::int32_t Missing = 0;  ///< frames of it that were lost on the way; silence stands in their place

  std::int64_t Frames() const { return static_cast<std::int64_t>(Samples.size() / 2); }
  std::int64_t End() const { return First + Frames(); }
};

/// Cuts the captured sound into readings: each frame belongs to exactly one reading, none is dropped between
/// two that follow each other.
class ReadingCutter {
 public:
  /// @param historyFrames frames that are kept while no reading is open
  explicit ReadingCutter(std::int64_t historyFrames) : history_(historyFrames) {}

  /// Takes whole frames as captured.
  void Hear(std::span<const std::int16_t> interleaved);
  /// Takes silence for frames that the sound server has lost.
  void HearGap(std::int64_t frames);
  /// Frames heard since capture began.
  std::int64_t Heard() const { return start_ + BufferedFrames(); }

  /// Opens a reading at a count of frames: in the future, or as far back as is kept and as no reading has
  /// been.
  /// @return where it was opened
  std::int64_t Open(std::int64_t at);
  /// Closes the open reading; the next one is open from there on. A time before its begin makes it empty.
  void Close(std::int64_t at);
  /// Closes the open reading; none is open then.
  void CloseLast(std::int64_t at);
  bool IsOpen() const { return openAt_.has_value(); }

  /// The next closed reading whose frames have all come in, in the order of closing.
  std::optional<SoundStretch> Next();
  /// The newest frames, at most so many.
  SoundStretch Newest(std::int64_t frames) const;

 private:
  struct Range {
    std::int64_t From = 0;
    std::int64_t To = 0;
  };
  std::int64_t BufferedFrames() const { return static_cast<std::int64_t>(buffer_.size() / 2); }
  SoundStretch Copy(const Range& range) const;
  void Forget();

  std::int64_t history_;
  std::deque<std::int16_t> buffer_;
  std::int64_t start_ = 0;  ///< count of the first frame in the buffer
  std::optional<std::int64_t> openAt_;
  std::int64_t used_ = 0;  ///< frames before it belong to readings
  std::deque<Range> closed_;
  std::deque<Range> gaps_;
};

}  // namespace lobegraph
