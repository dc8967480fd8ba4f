#include "data/formats/NsmaFile.h"

#include <gmock/gmock.h>

#include "support/LopsidedTable.h"
#include "support/TextOf.h"

namespace lobegraph {
namespace {

using ::testing::Optional;
using ::testing::StartsWith;

TEST(Nsma, HasTheRecordsInTheirOrder) {
  const std::string text = WriteNsma(LopsidedTable());
  EXPECT_THAT(text, StartsWith("REVNUM:,NSMA WG16.99.050\r\nREVDAT:,19990520\r\n"));
  std::size_t at = 0;
  for (const char* line :
       {"ANTMAN:,DL1ABC", "MODNUM:,3 el  yagi", "GUNITS:,DBI/DBR", "MDGAIN:,8.25", "AZWIDT:,60.50",
        "FRTOBA:,14.00", "NOFREQ:,1", "NUMCUT:,1", "PATCUT:,AZ", "POLARI:,V/V", "NUPOIN:,361",
        "FSTLST:,-180,180", "-180.000,", "40.000,0.000,", "180.000,", "ENDFIL:,EOF"}) {
    const std::size_t found = text.find(std::string("\r\n") + line, at);
    ASSERT_NE(found, std::string::npos) << line;
    at = found;
  }
}

TEST(Nsma, ReadsTheDirtOfOtherWriters) {
  const PatternTable table = ReadNsma(TextOf(
      "REVNUM:,NSMA WG16.99.050\nMODNUM:,abc ! the model\nPATFRE,144.3\nPATCUT:,EL\nNUPOIN:,2\n0,0\n10,-50\n"
      "PATCUT:,AZ\nPOLARI:,H/H\nNUPOIN:,3\n\xE2\x88\x92"
      "90,\xE2\x80\x93"
      "3.5,\n0.0,0.0,12\n90,-4\nPATCUT:,AZ\n0,-77\nENDFIL,EOF\n"));
  EXPECT_EQ(table.Name, "abc");
  EXPECT_THAT(table.FrequencyMHz, Optional(144.3));
  EXPECT_THAT(table.Horizontal, Optional(true));
  ASSERT_EQ(table.Points.size(), 3U) << "one azimuth cut, and no elevation";
  EXPECT_EQ(WholeDegrees(table)[270], -3.5);
}

}  // namespace
}  // namespace lobegraph
