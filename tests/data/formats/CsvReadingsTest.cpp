#include "data/formats/CsvReadings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <streambuf>

#include "data/base/FileAccess.h"
#include "data/base/RunTimeError.h"
#include "support/TemporaryFolder.h"

namespace lobegraph {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::SizeIs;

CsvReadings Read(const std::string& text) {
  std::istringstream file(text);
  return ReadCsv(file);
}

struct FieldsRow {
  const char* Name;
  std::string Text;
  std::vector<float> Values;
  int NotNumbers = 0;
};

class CsvFields : public testing::TestWithParam<FieldsRow> {};

TEST_P(CsvFields, read) {
  const CsvReadings readings = Read(GetParam().Text);
  EXPECT_THAT(readings.Values, ElementsAreArray(GetParam().Values));
  EXPECT_EQ(readings.NotNumbers, GetParam().NotNumbers);
  EXPECT_FALSE(readings.RestIgnored);
  EXPECT_FALSE(readings.ReadError);
}

INSTANTIATE_TEST_SUITE_P(
    Forms, CsvFields,
    testing::Values(FieldsRow{"commas", "1,2,3", {1, 2, 3}}, FieldsRow{"line_feeds", "1\n2\n3", {1, 2, 3}},
                    FieldsRow{"windows_line_ends", "1\r\n2\r\n3\r\n", {1, 2, 3}},
                    FieldsRow{"carriage_returns", "1\r2\r3", {1, 2, 3}},
                    FieldsRow{"the_last_line_end_adds_no_row", "1,2\n", {1, 2}},
                    FieldsRow{"byte_order_mark",
                              "\xEF\xBB\xBF"
                              "5,6\r\n",
                              {5, 6}},
                    FieldsRow{"byte_order_mark_before_a_quote", "\xEF\xBB\xBF\"5\",6\r\n", {5, 6}},
                    FieldsRow{"byte_order_mark_alone", "\xEF\xBB\xBF", {}}, FieldsRow{"nothing", "", {}},
                    FieldsRow{"blanks_around", "  1 ,\t2\t\n 3 ", {1, 2, 3}},
                    FieldsRow{"blanks_in_front_of_a_quote", "  \"7\" ,8", {7, 8}},
                    FieldsRow{"empty_fields_are_0", "1,,3,\n\n5", {1, 0, 3, 0, 0, 5}},
                    FieldsRow{"a_comma_at_the_end", "1,2,", {1, 2, 0}},
                    FieldsRow{"a_blank_field_is_0", "1,  ,3", {1, 0, 3}},
                    FieldsRow{"empty_quotes", "\"\",3", {0, 3}},
                    FieldsRow{"a_header", "Level\n4\n5", {0, 4, 5}, 1},
                    FieldsRow{"semicolons_do_not_separate", "1;2\n3", {0, 3}, 1},
                    FieldsRow{"tabs_do_not_separate", "1\t2\n3", {0, 3}, 1},
                    FieldsRow{"a_decimal_comma_is_two_fields", "1,5\n2,5", {1, 5, 2, 5}},
                    FieldsRow{"a_quoted_decimal_comma", "\"1,5\",2", {0, 2}, 1},
                    FieldsRow{"quoted_line_end", "\"1\n2\",3", {0, 3}, 1},
                    FieldsRow{"doubled_quotes", "\"a\"\",b\",3", {0, 3}, 1},
                    FieldsRow{"text_behind_a_quote", "\"1\"x,3", {0, 3}, 1},
                    FieldsRow{"a_quote_within_a_field", "1\"2,3", {0, 3}, 1},
                    FieldsRow{"a_quote_that_never_closes", "1,\"2,3\n4", {1, 0}, 1},
                    FieldsRow{"a_number_with_a_tail", "1 dB,2", {0, 2}, 1},
                    FieldsRow{"forms_of_numbers", "+1,-2.5,.5,1E3,1e-2", {1, -2.5F, .5F, 1000, .01F}},
                    FieldsRow{"no_numbers", "inf,nan,0x10,1e,--1", {0, 0, 0, 0, 0}, 5},
                    FieldsRow{"beyond_a_single", "1E39,-1E400,7", {0, 0, 7}, 2},
                    FieldsRow{"a_zero_byte", std::string("1,\0,3", 5), {1, 0, 3}, 1},
                    FieldsRow{"other_bytes", "\xFF\xFE,2", {0, 2}, 1}),
    [](const auto& row) { return row.param.Name; });

TEST(CsvReadings, values_behind_the_360th_are_ignored) {
  std::string text;
  for (int i = 1; i <= 400; ++i) text += std::to_string(i) + "\n";
  const CsvReadings readings = Read(text);
  ASSERT_THAT(readings.Values, SizeIs(360));
  EXPECT_EQ(readings.Values.front(), 1.F);
  EXPECT_EQ(readings.Values.back(), 360.F);
  EXPECT_TRUE(readings.RestIgnored);
}

TEST(CsvReadings, exactly_360_values_leave_no_rest) {
  std::string text;
  for (int i = 1; i <= 360; ++i) text += "1\r\n";
  EXPECT_FALSE(Read(text).RestIgnored);
  EXPECT_THAT(Read(text).Values, SizeIs(360));
}

TEST(CsvReadings, a_field_too_long_for_a_number_is_none_and_does_not_end_the_file) {
  const CsvReadings readings = Read(std::string(2'000'000, '1') + ",2," + std::string(600, ' ') + "3");
  EXPECT_THAT(readings.Values, ElementsAre(0.F, 2.F, 3.F));
  EXPECT_EQ(readings.NotNumbers, 1);
}

/// Counts what is taken of an endless file.
class Endless : public std::streambuf {
 public:
  long Served = 0;

 protected:
  int_type underflow() override {
    Served += static_cast<long>(sizeof line_);
    setg(line_, line_, line_ + sizeof line_);
    return traits_type::to_int_type(*line_);
  }

 private:
  char line_[2] = {'1', '\n'};
};

TEST(CsvReadings, an_endless_file_is_read_no_further_than_the_360th_value) {
  Endless bytes;
  std::istream file(&bytes);
  EXPECT_THAT(ReadCsv(file).Values, SizeIs(360));
  EXPECT_LE(bytes.Served, 2 * 361);
}

/// A disk that fails in the middle.
class Failing : public std::stringbuf {
 public:
  using std::stringbuf::stringbuf;

 protected:
  int_type underflow() override { throw std::ios_base::failure("disk"); }
};

TEST(CsvReadings, what_came_before_a_read_error_is_kept) {
  Failing bytes("1,2,3,", std::ios::in);
  std::istream file(&bytes);
  const CsvReadings readings = ReadCsv(file);
  EXPECT_TRUE(readings.ReadError);
  EXPECT_THAT(readings.Values, ElementsAre(1.F, 2.F, 3.F));
}

TEST(CsvReadings, the_window_says_what_was_read) {
  EXPECT_EQ(CsvSummary(Read("Level,1,2")), "3 values read, 1 were not numbers");
  std::string text = "x,y,";
  for (int i = 0; i < 400; ++i) text += "1,";
  EXPECT_EQ(CsvSummary(Read(text)), "360 values read, 2 were not numbers, the rest was ignored");
}

TEST(CsvReadings, files_that_cannot_be_opened_say_why) {
  const TemporaryFolder folder;
  DiskFiles disk;
  const auto numberOf = [&](const std::string& path) {
    try {
      disk.Open(path, FileAccess::kLargestFile);
    } catch (const RunTimeError& error) {
      return error.Number();
    }
    return 0;
  };
  EXPECT_EQ(numberOf(folder.File("none.csv")), fault::kFileNotFound);
  EXPECT_EQ(numberOf(folder.File("none/none.csv")), fault::kPathNotFound);
  EXPECT_EQ(numberOf(folder.Path().string()), fault::kPathFileAccess);
}

}  // namespace
}  // namespace lobegraph
