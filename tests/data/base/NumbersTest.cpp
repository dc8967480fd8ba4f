#include "data/base/Numbers.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>

#include "data/base/Rounding.h"
#include "support/FaultOf.h"

namespace lobegraph {
namespace {

struct LeadingCase {
  const char* Text;
  double Value;
};

class LeadingNumberTest : public ::testing::TestWithParam<LeadingCase> {};

TEST_P(LeadingNumberTest, ReadsTheLongestPrefixThatIsANumber) {
  EXPECT_DOUBLE_EQ(LeadingNumber(GetParam().Text), GetParam().Value) << GetParam().Text;
}

INSTANTIATE_TEST_SUITE_P(
    Texts, LeadingNumberTest,
    ::testing::Values(LeadingCase{"12", 12}, LeadingCase{"  -3.5 s", -3.5}, LeadingCase{"+7", 7},
                      LeadingCase{".5", .5}, LeadingCase{"-.25", -.25}, LeadingCase{"5.", 5},
                      LeadingCase{"1e3x", 1000}, LeadingCase{"1E-2", .01}, LeadingCase{"2e", 2},
                      LeadingCase{"2e+", 2}, LeadingCase{"abc", 0}, LeadingCase{"", 0}, LeadingCase{"   ", 0},
                      LeadingCase{"-", 0}, LeadingCase{".", 0}, LeadingCase{"inf", 0}, LeadingCase{"nan", 0},
                      LeadingCase{"0x1F", 0}, LeadingCase{"--5", 0}, LeadingCase{"+-5", 0},
                      LeadingCase{"1,5", 1}, LeadingCase{"1 5", 1}, LeadingCase{"1e-999", 0},
                      LeadingCase{"\t4", 4}));

TEST(NumbersTest, ANumberBeyondTheRangeOfADoubleIsAnOverflow) {
  EXPECT_EQ(FaultOf([] { LeadingNumber("1e999"); }), 6);
  EXPECT_EQ(FaultOf([] { LeadingNumber("-" + std::string(400, '9')); }), 6);
  EXPECT_EQ(LeadingNumber("0." + std::string(400, '0') + "1"), 0.0);
}

TEST(TypedNumberTest, ANumberBeyondADoubleIsInfiniteAndNoFault) {
  EXPECT_EQ(TypedNumber(" 33 degrees"), 33.0);
  EXPECT_EQ(TypedNumber("x"), 0.0);
  EXPECT_TRUE(std::isinf(TypedNumber("1e999")));
}

TEST(TypedNumberTest, ADecimalCommaIsAPoint) {
  EXPECT_EQ(TypedNumber("0,25"), 0.25);
  EXPECT_EQ(TypedNumber("-12,5 degrees"), -12.5);
  EXPECT_EQ(TypedNumber(" ,5"), 0.5);
  EXPECT_EQ(TypedNumber("12, 5"), 12.0);
  EXPECT_EQ(TypedNumber("1.5,5"), 1.5);
  EXPECT_EQ(TypedNumber("x,5"), 0.0);
  EXPECT_EQ(TypedNumber(","), 0.0);
}

TEST(NumbersTest, TheScanSaysWhereTheNumberStands) {
  const ScannedNumber number = ScanNumber("  -12.5dB");
  EXPECT_EQ(number.Begin, 2U);
  EXPECT_EQ(number.Length, 5U);
  EXPECT_EQ(ScanNumber("dB").Length, 0U);
}

TEST(NumbersTest, ATextThatIsNotANumberFromEndToEndIsATypeMismatch) {
  EXPECT_DOUBLE_EQ(WholeNumberText(" 12.5 "), 12.5);
  for (const char* text : {"", " ", "abc", "12abc", "1 2", "1,2", "0x10", "nan"})
    EXPECT_EQ(FaultOf([&] { WholeNumberText(text); }), 13) << text;
}

struct TextCase {
  float Value;
  const char* File;
  const char* Store;
};

class SingleTextTest : public ::testing::TestWithParam<TextCase> {};

TEST_P(SingleTextTest, HasAtMostSevenDigitsAndAPoint) {
  EXPECT_EQ(SingleText(GetParam().Value), GetParam().File);
  EXPECT_EQ(StoreText(GetParam().Value), GetParam().Store);
}

INSTANTIATE_TEST_SUITE_P(
    Values, SingleTextTest,
    ::testing::Values(TextCase{0.F, "0", "0"}, TextCase{-0.F, "0", "0"}, TextCase{.5F, ".5", "0.5"},
                      TextCase{-.25F, "-.25", "-0.25"}, TextCase{359.F, "359", "359"},
                      TextCase{-168.F, "-168", "-168"}, TextCase{.1F, ".1", "0.1"},
                      TextCase{.001F, ".001", "0.001"}, TextCase{100.F / 3.F, "33.33333", "33.33333"},
                      TextCase{1023.96875F, "1023.969", "1023.969"},
                      TextCase{9999999.F, "9999999", "9999999"}, TextCase{1E7F, "1E+07", "1E+07"},
                      TextCase{1.5E20F, "1.5E+20", "1.5E+20"}, TextCase{1E-7F, ".0000001", "0.0000001"},
                      TextCase{1E-8F, "1E-08", "1E-08"}, TextCase{.01234567F, "1.234567E-02", "1.234567E-02"},
                      TextCase{-3.402823E38F, "-3.402823E+38", "-3.402823E+38"}));

TEST(NumbersTest, TheSignsPlaceIsABlankForValuesThatAreNotNegative) {
  EXPECT_EQ(SignedPlaceText(1000.F), " 1000");
  EXPECT_EQ(SignedPlaceText(0.F), " 0");
  EXPECT_EQ(SignedPlaceText(-4.F), "-4");
}

TEST(NumbersTest, FixedDecimalsKeepTheirZeros) {
  EXPECT_EQ(FixedText(64.0, 2), "64.00");
  EXPECT_EQ(FixedText(-0.125, 2), "-0.12");
  EXPECT_EQ(FixedText(7.895, 1), "7.9");
}

TEST(NumbersTest, ADecimalCommaInTheSystemChangesNothing) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  const char* set = std::setlocale(LC_ALL, "de_DE.UTF-8");
  if (set != nullptr) {
    ASSERT_STREQ(std::localeconv()->decimal_point, ",");
  }
  EXPECT_DOUBLE_EQ(LeadingNumber("1.5"), 1.5);
  EXPECT_EQ(SingleText(1.5F), "1.5");
  EXPECT_EQ(FixedText(1.5, 2), "1.50");
  std::setlocale(LC_ALL, before.c_str());
  if (set == nullptr) GTEST_SKIP() << "the locale de_DE.UTF-8 is not installed here (./test installs it)";
}

TEST(RoundingTest, HalvesGoToTheEvenNeighbour) {
  const std::pair<double, double> cases[] = {{34.5, 34}, {35.5, 36},   {0.5, 0},  {1.5, 2},      {-0.5, 0},
                                             {-1.5, -2}, {-2.5, -2},   {2.49, 2}, {2.51, 3},     {55.556, 56},
                                             {-0.4, 0},  {359.5, 360}, {7.0, 7},  {166.667, 167}};
  for (const auto& [value, rounded] : cases) EXPECT_EQ(RoundHalfEven(value), rounded) << value;
}

TEST(RoundingTest, AValueThatDoesNotFitIsAnOverflow) {
  EXPECT_EQ(ToInt16(32767.4), 32767);
  EXPECT_EQ(ToInt16(-32768.5), -32768);
  EXPECT_EQ(FaultOf([] { ToInt16(32767.5); }), 6);
  EXPECT_EQ(FaultOf([] { ToInt16(-32769); }), 6);
  EXPECT_EQ(FaultOf([] { ToInt16(std::numeric_limits<double>::quiet_NaN()); }), 6);
  EXPECT_EQ(FaultOf([] { ToInt32(2147483648.0); }), 6);
  EXPECT_EQ(FaultOf([] { ToSingle(1e39); }), 6);
  EXPECT_EQ(ToSingle(0.1), 0.1F);
}

}  // namespace
}  // namespace lobegraph
