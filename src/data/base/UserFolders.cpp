#include "data/base/UserFolders.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <optional>

namespace lobegraph {
namespace {

std::optional<std::string> AbsoluteFrom(const char* variable) {
  const char* value = std::getenv(variable);
  return value != nullptr && *value == '/' ? std::optional<std::string>(value) : std::nullopt;
}

}  // namespace

std::string HomeFolder() {
  if (const auto home = AbsoluteFrom("HOME")) return *home;
  const passwd* user = getpwuid(getuid());
  return user == nullptr ? "/" : user->pw_dir;
}

std::string UserFolder(const char* variable, const std::string& inHome) {
  return AbsoluteFrom(variable).value_or(HomeFolder() + "/" + inHome);
}

}  // namespace lobegraph
