#include "data/table/TextLines.h"

#include <gmock/gmock.h>

#include <sstream>

#include "support/FaultOf.h"
#include "support/TextOf.h"

namespace lobegraph {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> LinesOf(TextLines& lines) {
  std::vector<std::string> all;
  while (const auto line = lines.Next()) all.emplace_back(*line);
  return all;
}

std::vector<std::string> LinesOf(const std::string& text) {
  TextOf lines(text);
  return LinesOf(static_cast<TextLines&>(lines));
}

TEST(TextLines, EndWithALineFeedWithACarriageReturnBeforeItOrWithTheText) {
  EXPECT_THAT(LinesOf("a\r\n\nb\n"), ElementsAre("a", "", "b"));
  EXPECT_THAT(LinesOf("a\rb\nc"), ElementsAre("a\rb", "c"));
  EXPECT_THAT(LinesOf(""), IsEmpty());
  EXPECT_THAT(LinesOf("\n"), ElementsAre(""));
}

TEST(TextLines, AreUtf8WhateverTheyWere) {
  EXPECT_THAT(LinesOf("\xEF\xBB\xBF"
                      "a\n\xC3\xA4\n\xE4\n"),
              ElementsAre("a", "\xC3\xA4", "\xC3\xA4"));
}

TEST(TextLines, AreWholeWhereverTheyLieInTheFile) {
  std::string text;
  for (int i = 0; i < 40'000; ++i) text += std::to_string(i) + std::string(i % 7, ' ') + "\n";
  text.append(300'000, 'x').append("\nend");
  const auto lines = LinesOf(text);
  ASSERT_EQ(lines.size(), 40'002U);
  for (int i = 0; i < 40'000; ++i) ASSERT_EQ(lines[i], std::to_string(i) + std::string(i % 7, ' '));
  EXPECT_EQ(lines[40'000].size(), 300'000U);
  EXPECT_EQ(lines[40'001], "end");
}

TEST(TextLines, BeginAgain) {
  TextOf text(
      "\xEF\xBB\xBF"
      "a\nb\n");
  TextLines& lines = text;
  EXPECT_THAT(LinesOf(lines), ElementsAre("a", "b"));
  lines.Restart();
  EXPECT_THAT(LinesOf(lines), ElementsAre("a", "b"));
}

/// A file that is larger than the memory: the same byte again and again.
class Endless : public std::streambuf {
 public:
  explicit Endless(char byte) { std::fill(std::begin(block_), std::end(block_), byte); }
  std::size_t Served = 0;

 protected:
  int_type underflow() override {
    Served += sizeof block_;
    setg(block_, block_, block_ + sizeof block_);
    return traits_type::to_int_type(*block_);
  }

 private:
  char block_[4096];
};

TEST(TextLines, AnEndlessLineIsRefusedBeforeItFillsTheMemory) {
  for (const char byte : {'\0', '9', ' '}) {
    Endless bytes(byte);
    std::istream file(&bytes);
    TextLines lines(file);
    EXPECT_EQ(FaultOf([&] { lines.Next(); }), fault::kTypeMismatch);
    EXPECT_LE(bytes.Served, 2 * TextLines::kLongestLine);
  }
}

/// A disk that fails behind the first block.
class Failing : public std::stringbuf {
 public:
  using std::stringbuf::stringbuf;

 protected:
  int_type underflow() override { throw std::ios_base::failure("disk"); }
};

TEST(TextLines, AFileThatBreaksOffIsNoShorterText) {
  Failing bytes("a\nb", std::ios::in);
  std::istream file(&bytes);
  TextLines lines(file);
  EXPECT_EQ(FaultOf([&] { LinesOf(lines); }), fault::kDeviceIo);
}

}  // namespace
}  // namespace lobegraph
