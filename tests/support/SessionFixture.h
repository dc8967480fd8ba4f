#pragma once

#include <gmock/gmock.h>

#include <string>

#include "data/formats/PatternFile.h"
#include "processing/session/PatternSession.h"
#include "support/OutcomeText.h"
#include "support/TestRecord.h"

namespace lobegraph {

/// A session, and pattern files that exist only in the test.
class SessionFixture : public testing::Test {
 protected:
  /// A beam of three elements as a file brings it, with that scale setting.
  static ReadingsRecord Beam(int at = 40, int count = 360) {
    ReadingsRecord record = BeamRecord(count, at);
    record.Description = "Three elements";
    record.ScaleSetting = 40.F;
    record.CollectedBy = "K1AB";
    record.Elements = "  3";
    return record;
  }
  static PatternReader Bytes(const std::string& bytes) {
    return [bytes](const LoadRules& rules, ReadingsRecord& record) {
      return ReadPatternText(bytes, rules, record);
    };
  }
  static PatternReader File(const ReadingsRecord& record) {
    return Bytes(WritePatternText(record, "V1.0.0"));
  }
  static PatternReader Unreadable() {
    return [](const LoadRules&, ReadingsRecord&) -> LoadOutcome { throw RunTimeError(fault::kFileNotFound); };
  }

  Outcome Load(const ReadingsRecord& record) { return Session.Load("/p/beam.lbg", File(record)); }
  Outcome Overlay(const ReadingsRecord& record) { return Session.Overlay("/p/over.lbg", File(record)); }
  std::vector<std::string> Placed(const Placement& placement) {
    Session.Type(placement);
    return Told(Session.Place());
  }

  PatternSession Session;
};

}  // namespace lobegraph
