#include "cli/OutputFiles.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>

#include "data/base/RunTimeError.h"
#include "support/TemporaryFolder.h"

namespace lobegraph {
namespace {

namespace fs = std::filesystem;

int FaultOf(const std::string& path) {
  try {
    OutputFiles().Replace(path, "new");
  } catch (const RunTimeError& error) {
    return error.Number();
  }
  return 0;
}

TEST(OutputFiles, WritesAndReplacesAndLeavesNothingBeside) {
  const TemporaryFolder folder;
  OutputFiles files;
  files.Replace(folder.File("a"), "old");
  files.Replace(folder.File("a"), "new");
  EXPECT_EQ(files.Read(folder.File("a")), "new");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), fs::directory_iterator()), 1);
}

TEST(OutputFiles, SaysWhatStandsInTheWay) {
  const TemporaryFolder folder;
  EXPECT_EQ(FaultOf(folder.File("missing/a")), fault::kPathNotFound);
  EXPECT_EQ(FaultOf(folder.Path().string()), fault::kPathFileAccess);
  EXPECT_EQ(FaultOf("/dev/full"), fault::kDiskFull);
  EXPECT_TRUE(fs::is_empty(folder.Path()));
}

TEST(OutputFiles, AFullDiskLeavesThePictureBehindALink) {
  const TemporaryFolder folder;
  OutputFiles files;
  files.Replace(folder.File("real"), "old");
  fs::create_symlink(folder.File("real"), folder.File("link"));
  const pid_t child = fork();
  if (child == 0) {
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
    const rlimit limit{1000, 1000};
    setrlimit(RLIMIT_FSIZE, &limit);
    try {
      OutputFiles().Replace(folder.File("link"), std::string(5000, 'x'));
    } catch (const RunTimeError& error) {
      _exit(error.Number());
    }
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_EQ(WEXITSTATUS(status), fault::kDiskFull);
  EXPECT_EQ(files.Read(folder.File("real")), "old");
}

TEST(OutputFiles, AReplacedFileKeepsItsModeAndAReadOnlyOneItsContent) {
  const TemporaryFolder folder;
  OutputFiles files;
  files.Replace(folder.File("own"), "old");
  files.Replace(folder.File("read-only"), "old");
  fs::permissions(folder.File("own"), fs::perms(0600));
  fs::permissions(folder.File("read-only"), fs::perms(0444));
  fs::permissions(folder.Path(), fs::perms(0777));
  files.Replace(folder.File("own"), "new");
  EXPECT_EQ(fs::status(folder.File("own")).permissions(), fs::perms(0600));
  const pid_t child = fork();
  if (child == 0) {
    if (geteuid() == 0 && setresuid(65534, 65534, 65534) != 0) _exit(1);  // to root nothing is read-only
    _exit(FaultOf(folder.File("read-only")));
  }
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_EQ(WEXITSTATUS(status), fault::kPathFileAccess);
  EXPECT_EQ(files.Read(folder.File("read-only")), "old");
}

TEST(OutputFiles, ANameThatAnybodyCanGuessIsNeverWrittenThrough) {
  const TemporaryFolder folder;
  std::ofstream(folder.File("victim")) << "mine";
  fs::create_symlink(folder.File("victim"), folder.File(".a." + std::to_string(getpid())));
  OutputFiles().Replace(folder.File("a"), "new");
  EXPECT_EQ(OutputFiles().Read(folder.File("victim")), "mine");
}

TEST(OutputFiles, AnyNameThatAFileMayHaveIsWritten) {
  const TemporaryFolder folder;
  for (const std::size_t length : {247U, 254U, 255U}) {
    const std::string path = folder.File(std::string(length, 'x'));
    OutputFiles().Replace(path, "new");
    EXPECT_EQ(OutputFiles().Read(path), "new") << length;
  }
}

TEST(OutputFiles, ALinkKeepsPointingAtItsFile) {
  const TemporaryFolder folder;
  OutputFiles files;
  files.Replace(folder.File("real"), "old");
  fs::create_symlink(folder.File("real"), folder.File("link"));
  files.Replace(folder.File("link"), "new");
  EXPECT_TRUE(fs::is_symlink(folder.File("link")));
  EXPECT_EQ(files.Read(folder.File("real")), "new");
}

}  // namespace
}  // namespace lobegraph
