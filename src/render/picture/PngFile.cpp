#include "render/picture/PngFile.h"

#include <libdeflate.h>

#include <new>
#include <string_view>

namespace lobegraph {
namespace {

constexpr int kLevel = 5;
constexpr std::uint32_t kDotsPerMetre = 3780;

void AppendNumber(std::string& bytes, std::uint32_t value) {
  for (const unsigned shift : {24U, 16U, 8U, 0U}) bytes += static_cast<char>(value >> shift & 255U);
}

void AppendChunk(std::string& file, std::string_view type, std::string_view content) {
  AppendNumber(file, static_cast<std::uint32_t>(content.size()));
  const std::size_t begin = file.size();
  file.append(type).append(content);
  AppendNumber(file, libdeflate_crc32(0, file.data() + begin, file.size() - begin));
}

std::string HeaderOf(const PixelView& picture) {
  std::string header;
  AppendNumber(header, static_cast<std::uint32_t>(picture.Width));
  AppendNumber(header, static_cast<std::uint32_t>(picture.Height));
  return header.append("\x08\x02\x00\x00\x00", 5);  // 8 bits a channel, red green blue, not interlaced
}

std::string DensityText() {
  std::string density;
  AppendNumber(density, kDotsPerMetre);
  AppendNumber(density, kDotsPerMetre);
  return density + '\x01';
}

/// Each row: no filter, then three bytes a pixel.
void PackRows(const PixelView& picture, std::string& rows) {
  const auto width = static_cast<std::size_t>(picture.Width);
  const auto height = static_cast<std::size_t>(picture.Height);
  rows.resize(height * (1 + 3 * width));
  char* to = rows.data();
  const std::uint32_t* from = picture.Pixels.data();
  for (std::size_t y = 0; y < height; ++y) {
    *to++ = 0;
    for (std::size_t x = 0; x < width; ++x, ++from) {
      *to++ = static_cast<char>(*from >> 16U);
      *to++ = static_cast<char>(*from >> 8U);
      *to++ = static_cast<char>(*from);
    }
  }
}

}  // namespace

PngEncoder::PngEncoder() : compressor_(libdeflate_alloc_compressor(kLevel)) {
  if (compressor_ == nullptr) throw std::bad_alloc();
}

PngEncoder::~PngEncoder() { libdeflate_free_compressor(compressor_); }

std::string PngEncoder::Encode(const PixelView& picture) {
  PackRows(picture, rows_);
  compressed_.resize(libdeflate_zlib_compress_bound(compressor_, rows_.size()));
  const std::size_t size = libdeflate_zlib_compress(compressor_, rows_.data(), rows_.size(),
                                                    compressed_.data(), compressed_.size());
  std::string file("\x89PNG\r\n\x1A\n", 8);
  AppendChunk(file, "IHDR", HeaderOf(picture));
  AppendChunk(file, "pHYs", DensityText());
  AppendChunk(file, "IDAT", std::string_view(compressed_).substr(0, size));
  AppendChunk(file, "IEND", {});
  return file;
}

}  // namespace lobegraph
