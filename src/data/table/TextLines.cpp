#include "data/table/TextLines.h"

#include <cstring>

#include "data/base/RunTimeError.h"
#include "data/base/TextEncoding.h"

namespace lobegraph {
namespace {

constexpr std::size_t kBlock = 1U << 16U;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

TextLines::TextLines(std::istream& bytes) : bytes_(*bytes.rdbuf()), buffer_(kBlock) {}

std::optional<std::string_view> TextLines::Next() {
  line_.clear();
  for (;;) {
    const std::string_view rest(buffer_.data() + begin_, end_ - begin_);
    const void* const end = std::memchr(rest.data(), '\n', rest.size());
    if (end != nullptr) {
      const auto length = static_cast<std::size_t>(static_cast<const char*>(end) - rest.data());
      begin_ += length + 1;
      return line_.empty() ? Text(rest.substr(0, length)) : Text(line_.append(rest, 0, length));
    }
    line_ += rest;
    if (line_.size() > kLongestLine)
      throw RunTimeError(fault::kTypeMismatch,
                         "a line of more than " + std::to_string(kLongestLine) + " bytes");
    if (!Fill()) return line_.empty() ? std::nullopt : std::optional(Text(line_));
  }
}

void TextLines::Restart() {
  bytes_.pubseekpos(0, std::ios::in);
  begin_ = end_ = 0;
  first_ = true;
}

bool TextLines::Fill() {
  begin_ = end_ = 0;
  try {
    end_ =
        static_cast<std::size_t>(bytes_.sgetn(buffer_.data(), static_cast<std::streamsize>(buffer_.size())));
  } catch (const std::ios_base::failure&) {
    throw RunTimeError(fault::kDeviceIo, "the file breaks off");
  }
  return end_ > 0;
}

std::string_view TextLines::Text(std::string_view line) {
  if (line.ends_with('\r')) line.remove_suffix(1);
  const bool marked = first_ && line.starts_with(kByteOrderMark);
  first_ = false;
  if (IsUtf8(line)) return line.substr(marked ? kByteOrderMark.size() : 0);
  decoded_ = DecodeText(line);
  return decoded_;
}

}  // namespace lobegraph
