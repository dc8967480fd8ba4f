#include "data/base/HomeFolder.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include "support/Variable.h"

namespace lobegraph {
namespace {

TEST(HomeFolderTest, WithoutTheVariableTheSystemsListOfUsersKnowsIt) {
  const char* listed = getpwuid(getuid())->pw_dir;
  for (const char* home : {"", static_cast<const char*>(nullptr)}) {
    const Variable variable("HOME", home);
    EXPECT_EQ(HomeFolder(), listed);
  }
}

TEST(DesktopFolderTest, FollowsTheDesktopsRule) {
  const Variable home("HOME", "/home/ham");
  {
    const Variable state("XDG_STATE_HOME", "/var/state");
    EXPECT_EQ(DesktopFolder("XDG_STATE_HOME", ".local/state"), "/var/state");
  }
  for (const char* unusable : {"relative/path", "", static_cast<const char*>(nullptr)}) {
    const Variable state("XDG_STATE_HOME", unusable);
    EXPECT_EQ(DesktopFolder("XDG_STATE_HOME", ".local/state"), "/home/ham/.local/state");
  }
}

}  // namespace
}  // namespace lobegraph
