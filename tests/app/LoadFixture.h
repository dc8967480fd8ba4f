#pragma once

#include <gtest/gtest.h>

#include <string>

#include "support/AppFixture.h"

namespace lobegraph {

/// A started window whose every visible and remembered thing can be compared.
class LoadFixture : public testing::Test, protected AppFixture {
 protected:
  LoadFixture() { Start(); }

  /// Everything of the window and the record that a load can touch.
  std::string Everything() const {
    std::string all;
    for (const ControlRow& row : ControlTable())
      all += View.Of(row.Id).Text + "|" + std::to_string(View.Of(row.Id).Checked) + "|" +
             std::to_string(View.Of(row.Id).Value) + "\n";
    const ReadingsRecord& record = Record();
    all += WritePatternText(record, "") + record.FilePath + "|" + record.FileName + "|" +
           std::to_string(record.ReadingCount) + "|" + std::to_string(Pattern.BeamwidthDeg()) + "|" +
           std::to_string(Pattern.Beneath().has_value()) + std::to_string(Pattern.Drawable()) +
           std::to_string(Pattern.DescriptionLoaded());
    return all;
  }
};

}  // namespace lobegraph
