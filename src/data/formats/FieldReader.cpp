#include "data/formats/FieldReader.h"

#include <algorithm>

#include "data/base/Numbers.h"
#include "data/base/Rounding.h"
#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

/// Where the field that begins at `from` ends: a plain loop, because most of the time of reading a thousand
/// files goes into it.
std::size_t FindSeparator(std::string_view text, std::size_t from) {
  while (from < text.size() && text[from] != ',' && text[from] != '\r' && text[from] != '\n') ++from;
  return from;
}

}  // namespace

std::string FieldReader::NextText() { return std::string(Next()); }

float FieldReader::NextSingle() { return ToSingle(WholeNumberText(Next())); }

std::int16_t FieldReader::NextInteger() { return ToInt16(WholeNumberText(Next())); }

FieldReader::Field FieldReader::Next() {
  position_ = std::min(text_.find_first_not_of(" \t", position_), text_.size());
  if (position_ == text_.size()) throw RunTimeError(fault::kInputPastEnd);
  if (text_[position_] == '"') return NextQuoted();
  const std::size_t end = FindSeparator(text_, position_);
  std::string_view field = text_.substr(position_, end - position_);
  field = field.substr(0, field.find_last_not_of(" \t") + 1);
  position_ = end;
  SkipPastSeparator();
  return field;
}

FieldReader::Field FieldReader::NextQuoted() {
  const std::size_t begin = position_ + 1;
  const std::size_t end = text_.find('"', begin);
  if (end == std::string_view::npos) throw RunTimeError(fault::kInputPastEnd);
  position_ = FindSeparator(text_, end + 1);
  SkipPastSeparator();
  return text_.substr(begin, end - begin);
}

void FieldReader::SkipPastSeparator() {
  if (position_ == text_.size()) return;
  const bool pair = text_.substr(position_, 2) == "\r\n";
  position_ += pair ? 2 : 1;
}

}  // namespace lobegraph
