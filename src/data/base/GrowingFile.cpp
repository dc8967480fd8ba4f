#include "data/base/GrowingFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "data/base/ReplaceFile.h"
#include "data/base/RunTimeError.h"

namespace lobegraph {

GrowingFile::GrowingFile(const std::string& path)
    : path_(path), handle_(open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644)) {
  if (handle_ < 0) throw RunTimeError(FaultOfErrno(errno), path_);
}

GrowingFile::~GrowingFile() { close(handle_); }

void GrowingFile::Rewrite(std::string_view bytes) const {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t written =
        pwrite(handle_, bytes.data() + done, bytes.size() - done, static_cast<off_t>(done));
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) throw RunTimeError(FaultOfErrno(written < 0 ? errno : ENOSPC), path_);
    done += static_cast<std::size_t>(written);
  }
  if (ftruncate(handle_, static_cast<off_t>(bytes.size())) != 0)
    throw RunTimeError(FaultOfErrno(errno), path_);
}

}  // namespace lobegraph
