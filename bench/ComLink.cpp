#include "bench/ComLink.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

#include "settings/SettingsTable.h"

namespace lobegraph {
namespace {

constexpr std::string_view kPorts = "Ports";

std::string OwnFolder() {
  std::string name = (std::filesystem::temp_directory_path() / "lobegraph-bench.XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder for the COM number: " + name);
  return name;
}

}  // namespace

ComLink::ComLink(SettingsStore& store, int number, int terminal)
    : store_(store), key_("COM" + std::to_string(number)), folder_(OwnFolder()), link_(folder_ + "/" + key_) {
  before_ = store.Get(kLobegraphApplication, kPorts, key_, "");
  const std::string end = "/proc/" + std::to_string(getpid()) + "/fd/" + std::to_string(terminal);
  std::filesystem::create_symlink(end, link_);
  store.Save(kLobegraphApplication, kPorts, key_, link_);
}

ComLink::~ComLink() {
  // Somebody may have given the number away meanwhile.
  if (store_.Get(kLobegraphApplication, kPorts, key_, "") == link_)
    store_.Save(kLobegraphApplication, kPorts, key_, before_);
  std::error_code ignored;
  std::filesystem::remove(link_, ignored);
  std::filesystem::remove(folder_, ignored);
}

}  // namespace lobegraph
