#include "cli/Progress.h"

#include <gmock/gmock.h>

#include <sstream>

namespace lobegraph {
namespace {

using std::chrono::milliseconds;
using ::testing::HasSubstr;

struct Bar {
  std::chrono::steady_clock::time_point Now;
  std::ostringstream Terminal;
  Progress Shown;

  explicit Bar(bool onTerminal) : Shown(Terminal, onTerminal, 200, [this] { return Now; }) {}
};

TEST(Progress, AppearsOnlyAfterASecond) {
  Bar bar(true);
  bar.Now += milliseconds(999);
  bar.Shown.Show(50);
  EXPECT_EQ(bar.Terminal.str(), "");
  bar.Now += milliseconds(1);
  bar.Shown.Show(50);
  EXPECT_THAT(bar.Terminal.str(), HasSubstr("[##########                              ] 50 of 200"));
}

TEST(Progress, StaysSilentWhereNobodyLooks) {
  Bar bar(false);
  bar.Now += milliseconds(5000);
  bar.Shown.Show(50);
  bar.Shown.Hide();
  EXPECT_EQ(bar.Terminal.str(), "");
}

TEST(Progress, IsDrawnTenTimesASecondAtMost) {
  Bar bar(true);
  bar.Now += milliseconds(1000);
  bar.Shown.Show(1);
  const auto once = bar.Terminal.str();
  bar.Now += milliseconds(99);
  bar.Shown.Show(2);
  EXPECT_EQ(bar.Terminal.str(), once);
  bar.Now += milliseconds(1);
  bar.Shown.Show(3);
  EXPECT_THAT(bar.Terminal.str(), HasSubstr("3 of 200"));
}

TEST(Progress, LeavesAnEmptyLine) {
  std::ostringstream terminal;
  std::chrono::steady_clock::time_point now;
  {
    Progress progress(terminal, true, 10, [&] { return now; });
    now += milliseconds(2000);
    progress.Show(10);
  }
  EXPECT_TRUE(terminal.str().ends_with("\r\033[K"));
}

}  // namespace
}  // namespace lobegraph
