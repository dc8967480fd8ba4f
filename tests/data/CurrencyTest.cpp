#include "data/Currency.h"

#include <gtest/gtest.h>

#include "data/RunTimeError.h"

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
  try {
    Currency::FromText("1e30");
    FAIL();
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), 6);
  }
}

TEST(CurrencyTest, ComparesAsANumber) {
  EXPECT_LT(Currency::FromText("0.99"), Currency::FromText("1"));
  EXPECT_EQ(Currency::FromText("1.0"), Currency::FromText("1"));
  EXPECT_DOUBLE_EQ(Currency::FromText("0.25").ToDouble(), 0.25);
}

}  // namespace
}  // namespace lobegraph
