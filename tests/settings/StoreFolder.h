#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "settings/FileSettingsStore.h"
#include "support/TemporaryFolder.h"

namespace lobegraph {

inline std::string ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// A real store in a folder of the test's own.
class StoreFolder : public ::testing::Test {
 protected:
  StoreFolder() { std::filesystem::create_directories(folder_.Path() / "lobegraph"); }

  std::string Path(const std::string& application = "Lobegraph") const {
    return folder_.File("lobegraph/" + application + ".conf");
  }
  /// Writes as a shell does: in place.
  void Write(const std::string& text, const std::string& application = "Lobegraph") const {
    std::ofstream(Path(application), std::ios::binary) << text;
  }
  std::string Get(std::string_view key, std::string_view fallback = "none") {
    return store_.Get("Lobegraph", "Settings", key, fallback);
  }
  bool Save(std::string_view key, std::string_view text) {
    return store_.Save("Lobegraph", "Settings", key, text);
  }

  TemporaryFolder folder_;
  FileSettingsStore store_{folder_.Path().string()};
};

}  // namespace lobegraph
