#include "data/base/Currency.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

TEST(CurrencyTest, DecimalTextIsHeldExactlyInTenThousandths) {
  const std::pair<const char*, std::int64_t> cases[] = {
      {"0.25", 2500},  {"1", 10000},   {"1.00", 10000}, {".5", 5000},        {"-0.01", -100},
      {"0.1 s", 1000}, {"abc", 0},     {"", 0},         {"1e-3", 10},        {"2.5E1", 250000},
      {"0.00015", 2},  {"0.00025", 2}, {"0.00005", 0},  {"0.000051", 1},     {"-0.00015", -2},
      {"1e-9", 0},     {"0e30", 0},    {" 7", 70000},   {"12.34567", 123457}};
  for (const auto& [text, value] : cases) EXPECT_EQ(Currency::FromText(text).TenThousandths(), value) << text;
}

TEST(CurrencyTest, IsShownInItsShortestForm) {
  for (const char* text : {"0.25", "7", "-0.01", "0", "1.0001", "123456.789"})
    EXPECT_EQ(Currency::FromText(text).ToText(), text);
  EXPECT_EQ(Currency::FromText("1.00").ToText(), "1");
}

TEST(CurrencyTest, AValueBeyondItsRangeIsAnOverflow) {
  for (const char* text :
       {"1e30", "922337203685477.58075", "-922337203685477.58075", "922337203685477.5808"}) {
    try {
      Currency::FromText(text);
      FAIL() << text;
    } catch (const RunTimeError& error) {
      EXPECT_EQ(error.Number(), 6);
    }
  }
  EXPECT_EQ(Currency::FromText("922337203685477.58074").TenThousandths(), 9223372036854775807);
}

TEST(CurrencyTest, AnExponentBeyondAllSenseMovesThePointAsFarAsItCan) {
  const std::string nines(400, '9');
  const std::vector<std::string> texts = {"1e-" + nines, "921234564.9e-372345678982490123456789",
                                          "0e" + nines, "1e-2147483648", "0e2147483647"};
  for (const std::string& text : texts) EXPECT_EQ(Currency::FromText(text), Currency()) << text;
}

TEST(CurrencyTest, ComparesAsANumber) {
  EXPECT_LT(Currency::FromText("0.99"), Currency::FromText("1"));
  EXPECT_EQ(Currency::FromText("1.0"), Currency::FromText("1"));
  EXPECT_DOUBLE_EQ(Currency::FromText("0.25").ToDouble(), 0.25);
}

}  // namespace
}  // namespace lobegraph
