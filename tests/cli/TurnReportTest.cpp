// report --turn: what the log of a turn says.
#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "cli/MemoryFiles.h"
#include "cli/ReportCommand.h"
#include "data/turns/TurnDigest.h"
#include "data/turns/TurnLogText.h"

namespace lobegraph {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using Json = nlohmann::ordered_json;

class TurnReport : public ::testing::Test {
 protected:
  void PutLog() {
    TurnLog log;
    log.SetKey(turnkey::kFormat, "1");
    log.SetKey(turnkey::kOperator, "N0CALL");
    log.SetKey(turnkey::kEnded, "whole");
    log.SetKey(turnkey::kRemark, "first\nsecond");
    log.AddRow({"1", "2026-11-21T10:22:33.045+01:00", "512.5", "34", ""});
    log.AddRow({"2", "2026-11-21T10:22:33.212+01:00", "490", "34", "late"});
    log.AddRow({"3", "2026-11-21T10:22:33.379+01:00", "490", "", "late silent"});
    NoteSaved(log, beam_, "smoothed");
    files_.Content["beam.turn.csv"] = TurnLogText(log);
  }
  int Run(bool json) {
    return RunReport({.Files = {"beam.lbg"}, .Json = json, .Turn = true},
                     {files_, output_, complaints_, false});
  }
  TurnReport() { files_.Content["beam.lbg"] = StoredText(beam_); }

  ReadingsRecord beam_ = StoredBeam();
  MemoryFiles files_;
  std::ostringstream output_, complaints_;
};

TEST_F(TurnReport, ATableOfTheKeysAndOfWhatIsFlagged) {
  PutLog();
  EXPECT_EQ(Run(false), 0);
  EXPECT_EQ(output_.str(),
            "beam.lbg\n"
            "  turn log            1\n"
            "  operator            N0CALL\n"
            "  ended               whole\n"
            "  remark              first\n"
            "  remark              second\n"
            "  since then          smoothed\n"
            "  late                2 readings, the first is No. 2\n"
            "  silent              1 reading, the first is No. 3\n");
  EXPECT_THAT(complaints_.str(), IsEmpty());
}

TEST_F(TurnReport, AnObjectWithEveryReading) {
  PutLog();
  EXPECT_EQ(Run(true), 0);
  const Json report = Json::parse(output_.str());
  EXPECT_EQ(report["file"], "beam.lbg");
  EXPECT_EQ(report["note"], nullptr);
  const Json& turn = report["turn"];
  EXPECT_EQ(turn["keys"]["operator"], "N0CALL");
  EXPECT_EQ(turn["keys"]["remark"], Json::array({"first", "second"}));
  EXPECT_EQ(turn["changes"], "smoothed");
  ASSERT_EQ(turn["readings"].size(), 3U);
  EXPECT_EQ(turn["readings"][1], Json({{"reading", 2},
                                       {"time", "2026-11-21T10:22:33.212+01:00"},
                                       {"level", 490},
                                       {"samples", 34},
                                       {"flags", "late"}}));
  EXPECT_EQ(turn["readings"][2]["samples"], nullptr) << "what is not known is no number";
}

TEST_F(TurnReport, APatternWithoutALogIsNamedAndNoFailure) {
  EXPECT_EQ(Run(true), 0);
  EXPECT_EQ(Json::parse(output_.str())["turn"], nullptr);
  EXPECT_THAT(complaints_.str(), HasSubstr("beam.lbg: no log of its turn lies beside it"));
}

TEST_F(TurnReport, AnotherPatternsLogIsNotBelieved) {
  PutLog();
  ReadingsRecord other = beam_;
  other.Readings(7) += 5.F;
  files_.Content["beam.lbg"] = StoredText(other);
  EXPECT_EQ(Run(false), 1);
  EXPECT_THAT(output_.str(), IsEmpty());
  EXPECT_THAT(complaints_.str(), HasSubstr("beam.turn.csv belongs to another pattern"));
}

TEST_F(TurnReport, APatternThatCannotBeReadIsAFailure) {
  files_.Content.erase("beam.lbg");
  EXPECT_EQ(Run(true), 1);
  EXPECT_THAT(output_.str(), IsEmpty());
  EXPECT_THAT(complaints_.str(), HasSubstr("File not found"));
}

TEST_F(TurnReport, NoHeadingOfTheFiguresComesWithIt) {
  PutLog();
  Run(false);
  EXPECT_THAT(output_.str(), Not(HasSubstr("Beamwidth")));
}

}  // namespace
}  // namespace lobegraph
