// What a radio's daemon answers, and what is published of it.
#include "meter/Strength.h"

namespace lobegraph {
namespace {

TEST(Strength, IsTheNumberThatTheDaemonAnswers) {
  EXPECT_EQ(ParseStrength("-54"), -54.0);
  EXPECT_EQ(ParseStrength("12.5"), 12.5);
  for (const char* answer : {"RPRT -11", "", "S9", "5 dB", "1e308", "-1001", "1e999"})
    EXPECT_EQ(ParseStrength(answer), std::nullopt) << answer;
}

TEST(Strength, TheReferenceIsPublishedAsMinus5) {
  EXPECT_EQ(PublishedText(40, 40), "-5.00");
  EXPECT_EQ(PublishedText(-14, 40), "-59.00");
  EXPECT_EQ(PublishedText(43.5, 40), "-1.50");
}

}  // namespace
}  // namespace lobegraph
