#include "data/base/HomeFolder.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

namespace lobegraph {

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

std::string HomeFolder() {
  std::string home = Environment("HOME");
  if (!home.empty()) return home;
  const passwd* user = getpwuid(getuid());
  return user == nullptr ? "/" : user->pw_dir;
}

std::string DesktopFolder(const char* variable, const std::string& below) {
  const std::string folder = Environment(variable);
  return folder.starts_with('/') ? folder : HomeFolder() + "/" + below;
}

}  // namespace lobegraph
