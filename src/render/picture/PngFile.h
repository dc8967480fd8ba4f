#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

struct libdeflate_compressor;

namespace lobegraph {

/// Pixels of a finished picture, row by row without gaps: 0xffRRGGBB.
struct PixelView {
  int Width = 0;
  int Height = 0;
  std::span<const std::uint32_t> Pixels;
};

/// Makes PNG files of 24-bit pictures. Level 5 of this compressor is where smaller files begin to cost time;
/// the drawings gain nothing from the format's filters.
class PngEncoder {
 public:
  /// @throws std::bad_alloc
  PngEncoder();
  PngEncoder(const PngEncoder&) = delete;
  PngEncoder& operator=(const PngEncoder&) = delete;
  ~PngEncoder();

  /// The bytes of the file, 96 dots to the inch.
  std::string Encode(const PixelView& picture);

 private:
  libdeflate_compressor* compressor_;
  std::string rows_;
  std::string compressed_;
};

}  // namespace lobegraph
