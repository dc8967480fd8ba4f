#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

#include "settings/SettingsTable.h"
#include "settings/StoreFolder.h"

namespace lobegraph {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;
using ::testing::EndsWith;

using StoreProcessesTest = StoreFolder;

/// A child process; its exit status is what the body returned.
pid_t InChild(const auto& body) {
  const pid_t child = fork();
  if (child == 0) _exit(body());
  return child;
}

int StatusOf(pid_t child) {
  int status = 0;
  waitpid(child, &status, 0);
  return status;
}

/// A child without the rights of root, from which no folder is kept.
int StatusWithoutRights(const auto& body) {
  return StatusOf(InChild([&] {
    if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) return 99;
    return body();
  }));
}

TEST_F(StoreProcessesTest, AFolderThatCannotBeReadMeansTheDefaultsAndASaveThatFails) {
  Write("[Settings]\nScale=40\n");
  fs::permissions(folder_.Path(), fs::perms::none);
  const int status =
      StatusWithoutRights([&] { return Get("Scale", "35") == "35" && !Save("Scale", "36") ? 0 : 1; });
  fs::permissions(folder_.Path(), fs::perms::owner_all);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(Get("Scale"), "40");
}

TEST_F(StoreProcessesTest, AFileThatCannotBeReadIsNotReplaced) {
  Write("[Settings]\nScale=40\n");
  fs::permissions(folder_.Path(), fs::perms::all);
  fs::permissions(folder_.Path() / "lobegraph", fs::perms::all);
  fs::permissions(Path(), fs::perms::none);
  EXPECT_EQ(StatusWithoutRights([&] { return Save("Trigger", "1") ? 1 : 0; }), 0);
  fs::permissions(Path(), fs::perms::owner_all);
  EXPECT_EQ(ReadFile(Path()), "[Settings]\nScale=40\n") << "its other values would have been lost";
}

TEST_F(StoreProcessesTest, TwentyProcessesKeepEachOthersKeys) {
  constexpr int kProcesses = 20;
  constexpr int kKeys = 5;
  std::vector<pid_t> children;
  for (int process = 0; process < kProcesses; ++process)
    children.push_back(InChild([&] {
      FileSettingsStore own(folder_.Path().string(), milliseconds(60000));
      bool saved = true;
      for (int i = 0; i < kKeys; ++i)
        saved &=
            own.Save("Lobegraph", "Settings", "k" + std::to_string(process * kKeys + i), std::to_string(i));
      return saved ? 0 : 1;
    }));
  for (const pid_t child : children) EXPECT_EQ(StatusOf(child), 0);
  for (int key = 0; key < kProcesses * kKeys; ++key)
    EXPECT_EQ(Get("k" + std::to_string(key)), std::to_string(key % kKeys)) << key;
}

TEST_F(StoreProcessesTest, AKilledWriterLeavesAWholeFile) {
  ASSERT_TRUE(Save("Stays", "here"));
  for (int round = 0; round < 20; ++round) {
    const std::string text(static_cast<std::size_t>(20000 + round), 'x');
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t child = InChild([&] {
      Save("Long", text);
      if (write(ready[1], "x", 1) != 1) return 1;
      while (true) Save("Long", text);
    });
    char byte = 0;
    ASSERT_EQ(read(ready[0], &byte, 1), 1);
    usleep(static_cast<useconds_t>(round * 137));
    kill(child, SIGKILL);
    StatusOf(child);
    close(ready[0]);
    close(ready[1]);
    ASSERT_EQ(ReadFile(Path()), "[Settings]\nStays=here\nLong=" + text + "\n");
  }
  EXPECT_TRUE(Save("Scale", "35")) << "a killed writer's lock is free";
}

TEST_F(StoreProcessesTest, AFullDiskLeavesTheOldFile) {
  ASSERT_TRUE(Save("Scale", "35"));
  const int status = StatusOf(InChild([&] {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{64, 64};
    setrlimit(RLIMIT_FSIZE, &limit);
    return Save("Username", std::string(1000, 'x')) ? 1 : 0;
  }));
  EXPECT_EQ(status, 0);
  EXPECT_EQ(ReadFile(Path()), "[Settings]\nScale=35\n");
}

/// The first shell block of the guide for writers of meter programs.
std::string ShellExample() {
  const fs::path sources = fs::path(LOBEGRAPH_TEST_FILES).parent_path().parent_path();
  const std::string guide = ReadFile((sources / "docs/settings-store.md").string());
  const auto begin = guide.find("```sh\n") + 6;
  return guide.substr(begin, guide.find("```", begin) - begin);
}

TEST_F(StoreProcessesTest, TheGuidesShellExamplePublishes) {
  const int status = StatusOf(InChild([&] {
    setenv("XDG_CONFIG_HOME", folder_.Path().c_str(), 1);
    return system((ShellExample() + "\npublish Y -42.5\n").c_str()) == 0 ? 0 : 1;
  }));
  ASSERT_EQ(status, 0);
  EXPECT_EQ(store_.Get(kGaugeBridgeApplication, kSettingsSection, kPublishedActive.Key, "N"), "Y");
  EXPECT_EQ(store_.Get(kGaugeBridgeApplication, kSettingsSection, kPublishedReading.Key, "1"), "-42.5");
}

TEST(ConfigFolderTest, FollowsTheDesktopsRules) {
  const auto folderWith = [](const char* xdg, const char* home) {
    int ends[2];
    EXPECT_EQ(pipe(ends), 0);
    StatusOf(InChild([&] {
      xdg == nullptr ? unsetenv("XDG_CONFIG_HOME") : setenv("XDG_CONFIG_HOME", xdg, 1);
      home == nullptr ? unsetenv("HOME") : setenv("HOME", home, 1);
      const std::string folder = ConfigFolder();
      return write(ends[1], folder.data(), folder.size()) < 0 ? 1 : 0;
    }));
    close(ends[1]);
    char text[4096];
    const ssize_t length = read(ends[0], text, sizeof text);
    close(ends[0]);
    return std::string(text, static_cast<std::size_t>(length));
  };
  EXPECT_EQ(folderWith("/x/config", "/home/ann"), "/x/config");
  EXPECT_EQ(folderWith(nullptr, "/home/ann"), "/home/ann/.config");
  EXPECT_EQ(folderWith("", "/home/ann"), "/home/ann/.config");
  EXPECT_EQ(folderWith("relative", "/home/ann"), "/home/ann/.config");
  EXPECT_THAT(folderWith(nullptr, nullptr), EndsWith("/.config")) << "the user's home, from the user list";
}

}  // namespace
}  // namespace lobegraph
