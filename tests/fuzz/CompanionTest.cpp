// The first of the inputs that lobegraph_mutator makes without end.
#include "fuzz/Companion.h"

#include <gtest/gtest.h>

#include "data/formats/PatternFormats.h"
#include "fuzz/Targets.h"
#include "tests/cli/MemoryFiles.h"

namespace lobegraph::fuzz {
namespace {

std::string Circle(const char* row) {
  std::string text;
  for (int degrees = 0; degrees < 360; degrees += 2)
    text += std::to_string(degrees) + row + std::to_string(degrees % 30) + "\n";
  return text;
}

std::vector<Sample> Seeds() {
  return {{"x.lbg", StoredText(StoredBeam())},
          {"x.lbg", StoredText(StoredBeam(100))},
          {"x.csv", Circle(" "), true},
          {"x.csv", "angle;level (dB)\n" + Circle(";-"), true},
          {"x.csv", StoredText(StoredBeam(70))},
          {"x.msi", "NAME a\nHORIZONTAL 180\n" + Circle(" ")},
          {"x.ant", Circle("\n-")},
          {"x.az", "10\n" + Circle(" .")},
          {"x.adf", "MODNUM:,a\nPATCUT:,AZ\n" + Circle(",-")},
          {"x.nec", "RADIATION PATTERNS\n" + Circle(" 0 0 0 -")}};
}

TEST(CompanionMutator, TheVerbsKeepTheirPromisesForChangedFilesOfEveryFormat) {
  Mutator mutator(Seeds());
  for (std::uint64_t number = 0; number < 300; ++number) {
    const Sample sample = mutator.Make(number);
    ASSERT_NO_THROW(TryCompanion(sample)) << number << " in " << sample.Name << "\n" << sample.Text;
  }
}

TEST(CompanionMutator, MakesTheSameForTheSameNumber) {
  Mutator one(Seeds()), other(Seeds());
  other.Make(1);
  EXPECT_EQ(one.Make(77).Text, other.Make(77).Text);
  EXPECT_NE(one.Make(77).Text, one.Make(78).Text);
}

}  // namespace
}  // namespace lobegraph::fuzz
