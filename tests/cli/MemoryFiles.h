#pragma once

#include <map>
#include <string>

#include "data/base/FileAccess.h"
#include "data/base/RunTimeError.h"
#include "data/formats/PatternFile.h"
#include "support/TestRecord.h"

namespace lobegraph {

/// Files that exist only in a test. Not for writing from several threads.
class MemoryFiles : public FileAccess {
 public:
  std::map<std::string, std::string> Content;

  std::string Read(const std::string& path) override {
    const auto found = Content.find(path);
    if (found == Content.end()) throw RunTimeError(fault::kFileNotFound, path);
    return found->second;
  }
  bool Exists(const std::string& path) override { return Content.contains(path); }
  void Replace(const std::string& path, std::string_view bytes) override { Content[path] = bytes; }
  void Remove(const std::string& path) override { Content.erase(path); }
};

/// A three-element beam, 360 readings, the beam at reading 40.
inline ReadingsRecord StoredBeam(int count = 360) {
  ReadingsRecord record = BeamRecord(count, 40 * count / 360);
  record.Description = "test beam";
  record.ScaleSetting = 35.F;
  record.CollectedBy = "DL1ABC";
  record.CollectedDate = "1.2.2024";
  record.Elements = "3";
  return record;
}

inline std::string StoredText(const ReadingsRecord& record) { return WritePatternText(record, "V1.0.0"); }

}  // namespace lobegraph
