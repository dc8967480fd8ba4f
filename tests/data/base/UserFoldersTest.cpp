#include "data/base/UserFolders.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include "support/Variable.h"

namespace lobegraph {
namespace {

TEST(UserFolders, FollowTheDesktopsRule) {
  const Variable home("HOME", "/home/ham");
  const Variable state("XDG_STATE_HOME", "/var/state");
  EXPECT_EQ(UserFolder("XDG_STATE_HOME", ".local/state"), "/var/state");
  const Variable relative("XDG_STATE_HOME", "state");
  EXPECT_EQ(UserFolder("XDG_STATE_HOME", ".local/state"), "/home/ham/.local/state");
}

TEST(UserFolders, WithoutAHomeThatCountsThePasswordFileSaysIt) {
  const std::string own = getpwuid(getuid())->pw_dir;
  const Variable state("XDG_STATE_HOME", "");
  for (const char* unusable : {"", "relative", "."}) {
    const Variable home("HOME", unusable);
    EXPECT_EQ(HomeFolder(), own) << unusable;
    EXPECT_EQ(UserFolder("XDG_STATE_HOME", ".local/state"), own + "/.local/state");
  }
  unsetenv("HOME");
  EXPECT_EQ(HomeFolder(), own);
}

}  // namespace
}  // namespace lobegraph
