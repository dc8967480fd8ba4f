#include "data/base/FileAccess.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>

#include "data/formats/PatternFile.h"
#include "support/FaultOf.h"
#include "support/TemporaryFolder.h"

namespace lobegraph {
namespace {

std::size_t FilesIn(const std::filesystem::path& folder) {
  return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder), {}));
}

class FileAccessTest : public ::testing::Test {
 protected:
  TemporaryFolder folder_;
  DiskFiles files_;
};

TEST_F(FileAccessTest, WhatIsReplacedIsRead) {
  const std::string path = folder_.File("a.lbg");
  EXPECT_FALSE(files_.Exists(path));
  files_.Replace(path, "first");
  files_.Replace(path, std::string("sec\0ond", 7));
  EXPECT_TRUE(files_.Exists(path));
  EXPECT_EQ(files_.Read(path), std::string("sec\0ond", 7));
  EXPECT_EQ(FilesIn(folder_.Path()), 1U) << "no temporary file is left";
}

TEST_F(FileAccessTest, EachObstacleToReadingHasItsNumber) {
  EXPECT_EQ(FaultOf([&] { files_.Read(folder_.File("none.lbg")); }), 53);
  EXPECT_EQ(FaultOf([&] { files_.Read(folder_.File("none/none.lbg")); }), 76);
  EXPECT_EQ(FaultOf([&] { files_.Read(folder_.Path().string()); }), 75);
  EXPECT_EQ(FaultOf([&] { files_.Read("/dev/zero"); }), 75);
}

TEST_F(FileAccessTest, ANamedPipeDoesNotHoldTheWindow) {
  const std::string path = folder_.File("pipe.lbg");
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  EXPECT_EQ(FaultOf([&] { files_.Read(path); }), 75);
}

TEST_F(FileAccessTest, ALoadThatFindsNoFileReportsItsNumber) {
  ReadingsRecord record;
  const LoadOutcome outcome = LoadPatternFile(files_, folder_.File("none.lbg"), {}, record);
  EXPECT_EQ(outcome.Error->Number(), 53);
  EXPECT_EQ(record.Description, "no description");
}

TEST_F(FileAccessTest, AFileBeyondAMegabyteIsRefusedWithItsSizeNeverReadInPart) {
  const std::string path = folder_.File("big.lbg");
  std::ofstream(path) << "9";
  std::filesystem::resize_file(path, FileAccess::kLargestFile);
  EXPECT_EQ(files_.Read(path).size(), FileAccess::kLargestFile);
  std::filesystem::resize_file(path, 1U << 30U);
  const auto refusal = [](const auto& action) {
    try {
      action();
    } catch (const RunTimeError& error) {
      return std::to_string(error.Number()) + " " + error.AdviceText();
    }
    return std::string();
  };
  const std::string told =
      "75 The file has 1073741824 bytes, more than the 1048576 that such a file may have.";
  EXPECT_EQ(refusal([&] { files_.Read(path); }), told);
  EXPECT_EQ(refusal([&] { files_.Open(path, FileAccess::kLargestFile); }), told);
  EXPECT_EQ(refusal([&] { files_.Open(path, FileAccess::kAnySize); }), "");
}

TEST_F(FileAccessTest, EachObstacleToWritingHasItsNumberAndLeavesTheOldFile) {
  EXPECT_EQ(FaultOf([&] { files_.Replace(folder_.File("gone/a.lbg"), "x"); }), 76);
  EXPECT_EQ(FaultOf([&] { files_.Replace(folder_.Path().string(), "x"); }), 75);
  EXPECT_EQ(FaultOf([&] { files_.Replace("/dev/null", "x"); }), 75) << "a device is not replaced by a file";
}

TEST_F(FileAccessTest, AFullDiskLeavesTheOldFileWhole) {
  const std::string path = folder_.File("a.lbg");
  files_.Replace(path, "old");
  // A limit on file size is how a process meets "no room" without filling a real disk: the same call fails
  // half-way.
  const pid_t child = fork();
  if (child == 0) {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{1000, 1000};
    setrlimit(RLIMIT_FSIZE, &limit);
    _exit(FaultOf([&] { files_.Replace(path, std::string(5000, 'x')); }));
  }
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_EQ(WEXITSTATUS(status), 61);
  EXPECT_EQ(files_.Read(path), "old");
  EXPECT_EQ(FilesIn(folder_.Path()), 1U);
}

TEST_F(FileAccessTest, ALinkKeepsPointingAtItsFileAndRightsStay) {
  const std::string path = folder_.File("real.lbg");
  const std::string link = folder_.File("link.lbg");
  files_.Replace(path, "old");
  ASSERT_EQ(chmod(path.c_str(), 0640), 0);
  std::filesystem::create_symlink(path, link);
  files_.Replace(link, "new");
  EXPECT_TRUE(std::filesystem::is_symlink(link));
  EXPECT_EQ(files_.Read(path), "new");
  struct stat status {};
  stat(path.c_str(), &status);
  EXPECT_EQ(status.st_mode & 07777U, 0640U);
}

TEST(FileNameTest, IsWhatFollowsTheLastSeparatorOfEitherKind) {
  EXPECT_EQ(FileNameOf("/home/a/b.lbg"), "b.lbg");
  EXPECT_EQ(FileNameOf("C:\\data\\b.lbg"), "b.lbg");
  EXPECT_EQ(FileNameOf("b.lbg"), "b.lbg");
}

TEST(FileNameTest, TheEndingIsAddedUnlessItIsThereInAnyLetterCase) {
  EXPECT_EQ(WithEnding("a", ".lbg"), "a.lbg");
  EXPECT_EQ(WithEnding("A.LBG", ".lbg"), "A.LBG");
  EXPECT_EQ(WithEnding("a.txt", ".lbg"), "a.txt.lbg");
  EXPECT_EQ(WithEnding("bg", ".lbg"), "bg.lbg");
  EXPECT_EQ(WithEnding("", ".lbg"), ".lbg");
}

}  // namespace
}  // namespace lobegraph
