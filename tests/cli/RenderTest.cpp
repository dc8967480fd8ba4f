#include "cli/RenderCommand.h"

#include <gmock/gmock.h>

#include <regex>

#include "cli/ColoursFile.h"
#include "cli/MemoryFiles.h"

namespace lobegraph {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

/// Says what it was asked for instead of drawing.
class NamedPictures : public PictureFiles {
 public:
  std::string Png(const Picture& picture, int width, int height) override {
    return "png " + picture.Patterns.front().Name + " " + std::to_string(width) + "x" +
           std::to_string(height);
  }
  std::string Pdf(const Picture& picture) override { return "pdf " + picture.Title; }
};

class Render : public ::testing::Test {
 protected:
  Render() {
    files_.Content["beam.lbg"] = StoredText(StoredBeam());
    ReadingsRecord other = StoredBeam();
    other.Description = "no description";
    other.Rotate = 90.F;
    files_.Content["dir/other.lbg"] = StoredText(other);
    files_.Content["bad.lbg"] = "7";
  }
  int Run(const RenderRequest& request) {
    complaints_.str("");
    NamedPictures pictures;
    return RunRender(request, {files_, output_, complaints_, false}, pictures);
  }
  std::string Svg(RenderRequest request) {
    request.Files = {"beam.lbg"};
    request.Out = "out.svg";
    EXPECT_EQ(Run(request), 0) << complaints_.str();
    return files_.Content["out.svg"];
  }
  static long CountOf(const std::string& text, const std::string& pattern) {
    const std::regex expression(pattern);
    return std::distance(std::sregex_iterator(text.begin(), text.end(), expression), std::sregex_iterator());
  }
  /// The elements of the nth group of a class.
  static std::string Group(const std::string& document, const std::string& name, int nth = 0) {
    std::size_t at = document.find("<g class=\"" + name + "\">");
    for (; nth > 0; --nth) at = document.find("<g class=\"" + name + "\">", at + 1);
    return at == std::string::npos ? "" : document.substr(at, document.find("</g>", at) - at);
  }

  MemoryFiles files_;
  std::ostringstream output_, complaints_;
};

TEST_F(Render, EveryRingRayAndLabelOfTheGridIsAnElement) {
  const std::string grid = Group(Svg({}), "grid");
  EXPECT_EQ(CountOf(grid, "<circle cx=\"250.5\" cy=\"283\" "), 19) << "the blanked middle and 18 rings";
  EXPECT_EQ(CountOf(grid, "<line [^>]*x2=\"250.5\" y2=\"283\""), 36);
  EXPECT_EQ(CountOf(grid, "<text "), 16);
  EXPECT_THAT(grid, HasSubstr("x=\"240.5\" y=\"37\""));
  EXPECT_THAT(grid, HasSubstr("> -10 </text>"));
}

TEST_F(Render, TheTraceHasASegmentForEachReadingAndClosesTheFigure) {
  const std::string trace = Group(Svg({}), "trace");
  EXPECT_EQ(CountOf(trace, "<line "), 360);
  EXPECT_EQ(CountOf(trace, "class=\"dot\""), 1);
  EXPECT_EQ(CountOf(trace, "stroke=\"#800000\" stroke-width=\"2\""), 360);
  // The strongest reading, at 40 degrees on the rim: 250.5 + 234 sin 40, 283 - 234 cos 40.
  EXPECT_THAT(trace, HasSubstr("x2=\"400.9123\" y2=\"103.7456\""));
}

TEST_F(Render, TheMinus3dBLinesAreAGroupOfTheirOwn) {
  const std::string marks = Group(Svg({}), "minus3db");
  EXPECT_EQ(CountOf(marks, "<line x1=\"250.5\" y1=\"283\" "), 2);
  EXPECT_EQ(CountOf(marks, "stroke=\"#000080\""), 2);
}

TEST_F(Render, TheAnglesAndUnitsAreAGroupOfTheirOwn) {
  const std::string axis = Group(Svg({}), "axis");
  EXPECT_EQ(CountOf(axis, "<text "), 13);
  EXPECT_THAT(axis, HasSubstr(">270</text>"));
  EXPECT_THAT(axis, HasSubstr(">Level in dB, angle in degrees</text>"));
  RenderRequest rectangular;
  rectangular.Pattern.Style.Rectangular = true;
  EXPECT_THAT(Group(Svg(rectangular), "axis"), HasSubstr(">-180</text>"));
}

TEST_F(Render, ADescriptionMayHoldAnything) {
  ReadingsRecord record = StoredBeam();
  record.Description = "<b> & 'c' ]]> \xC3\xA4";
  files_.Content["beam.lbg"] = StoredText(record);
  EXPECT_THAT(Svg({}), HasSubstr("<title>&lt;b&gt; &amp; &#39;c&#39; ]]&gt; \xC3\xA4</title>"));
}

TEST_F(Render, ScaleAndRectangularAndApplyReachTheDrawing) {
  RenderRequest linear;
  linear.Pattern.Style.Scale = PlotScale::Linear;
  EXPECT_THAT(Group(Svg(linear), "grid"), HasSubstr("> 1.0 </text>"));
  RenderRequest db50;
  db50.Pattern.Style.Scale = PlotScale::Db50;
  EXPECT_THAT(Group(Svg(db50), "grid"), HasSubstr("> -50 </text>"));
  RenderRequest rectangular;
  rectangular.Pattern.Style.Rectangular = true;
  EXPECT_EQ(CountOf(Group(Svg(rectangular), "grid"), "<circle"), 0);
  EXPECT_THAT(Group(Svg(rectangular), "grid"), HasSubstr("class=\"outline\""));
  RenderRequest oriented;
  oriented.Pattern.Apply = {Transform::Orient};
  EXPECT_THAT(Group(Svg(oriented), "trace"), HasSubstr("x2=\"250.5\" y2=\"49\""));
}

TEST_F(Render, OverlaysAreDrawnOverOneGridEachWithALegendEntry) {
  const std::string document = Svg({.Overlays = {"dir/other.lbg", "beam.lbg"}});
  EXPECT_EQ(CountOf(document, "<g class=\"grid\">"), 1);
  EXPECT_EQ(CountOf(document, "<g class=\"trace\">"), 3);
  EXPECT_EQ(CountOf(Group(document, "trace", 1), "stroke=\"#008000\""), 360);
  EXPECT_EQ(CountOf(Group(document, "trace", 2), "stroke=\"#0072b2\""), 360);
  EXPECT_EQ(CountOf(Group(document, "minus3db", 1), "stroke=\"#ffff00\""), 2);
  const std::string legend = Group(document, "legend");
  EXPECT_EQ(CountOf(legend, "<text "), 3);
  EXPECT_EQ(CountOf(legend, "<line "), 3);
  EXPECT_THAT(legend, HasSubstr(">test beam</text>"));
  EXPECT_THAT(legend, HasSubstr(">other.lbg</text>")) << "without a description the file's name";
}

TEST_F(Render, TwoPatternsThatWouldBeOnePictureAreRefusedBeforeAnythingIsWritten) {
  files_.Content["field/beam.lbg"] = files_.Content["beam.lbg"];
  EXPECT_EQ(Run({.Files = {"dir/other.lbg", "beam.lbg", "field/beam.lbg"}, .Out = "p/{}.svg", .Force = true}),
            2);
  EXPECT_EQ(complaints_.str(),
            "lobegraph-cli: p/beam.svg: would be the picture of beam.lbg and of field/beam.lbg\n");
  EXPECT_FALSE(files_.Exists("p/other.svg"));
}

TEST_F(Render, APictureThatWasNotNamedOutrightIsReplacedByForceOnly) {
  files_.Content["p/other.svg"] = "mine";
  RenderRequest request{.Files = {"beam.lbg", "dir/other.lbg"}, .Out = "p/{}.svg"};
  EXPECT_EQ(Run(request), 2);
  EXPECT_THAT(complaints_.str(), HasSubstr("p/other.svg: is there already; --force"));
  EXPECT_FALSE(files_.Exists("p/beam.svg"));
  request.Force = true;
  EXPECT_EQ(Run(request), 0);
  EXPECT_NE(files_.Content["p/other.svg"], "mine");
  EXPECT_EQ(Run({.Files = {"beam.lbg"}, .Out = "p/other.svg"}), 0) << "named outright";
}

TEST_F(Render, AFileWithoutReadingsIsNamed) {
  ReadingsRecord record = StoredBeam();
  record.NumReadings = -1;
  files_.Content["empty.lbg"] = StoredText(record);
  EXPECT_EQ(Run({.Files = {"empty.lbg"}, .Out = "out.svg"}), 1);
  EXPECT_EQ(complaints_.str(), "lobegraph-cli: empty.lbg: no reading is there to draw\n");
}

TEST_F(Render, OnePatternAloneNeedsNoLegend) { EXPECT_EQ(Group(Svg({}), "legend"), ""); }

TEST_F(Render, ALongLegendMakesThePictureHigherAndMovesNothing) {
  EXPECT_EQ(PictureHeightOf(6), 560);
  EXPECT_EQ(PictureHeightOf(7), 572);
  const std::string document = Svg({.Overlays = std::vector<std::string>(9, "beam.lbg")});
  EXPECT_THAT(document, HasSubstr("viewBox=\"0 0 501 584\""));
  EXPECT_EQ(CountOf(document, "<circle cx=\"250.5\" cy=\"283\" "), 19);
}

TEST_F(Render, AnOverlayTakesTheScaleOfThePlotBeneath) {
  ReadingsRecord wide = StoredBeam();
  wide.ScaleSetting = 80.F;
  files_.Content["wide.lbg"] = StoredText(wide);
  const std::string document = Svg({.Overlays = {"wide.lbg"}});
  const auto pointsOnly = [](std::string group) {
    return std::regex_replace(group, std::regex("(stroke|fill)=\"[^\"]*\""), "");
  };
  EXPECT_EQ(pointsOnly(Group(document, "trace", 0)), pointsOnly(Group(document, "trace", 1)));
}

TEST_F(Render, ATitleStandsAboveThePlot) {
  const std::string document = Svg({.Title = "3 elements & more"});
  EXPECT_THAT(Group(document, "title"), HasSubstr(">3 elements &amp; more</text>"));
  EXPECT_EQ(Group(Svg({}), "title"), "");
}

TEST_F(Render, ColoursComeFromAFile) {
  files_.Content["c.txt"] = "PlotBackground=#102030\nPlotGridColour=255\nPlotLineColour=#abcdef\n";
  const std::string document = Svg({.ColoursFile = "c.txt"});
  EXPECT_THAT(
      document,
      HasSubstr("class=\"background\" x=\"0\" y=\"0\" width=\"501\" height=\"560\" fill=\"#102030\""));
  EXPECT_EQ(CountOf(Group(document, "trace"), "stroke=\"#abcdef\""), 360);
  EXPECT_THAT(Group(document, "grid"), HasSubstr("stroke=\"#ff0000\""));
}

TEST_F(Render, ThePictureIsMadeByTheEndingOfItsName) {
  EXPECT_EQ(Run({.Files = {"beam.lbg"}, .Out = "a.PNG", .Width = 10, .Height = 20}), 0);
  EXPECT_EQ(files_.Content["a.PNG"], "png test beam 10x20");
  EXPECT_EQ(Run({.Files = {"beam.lbg"}, .Out = "a.pdf", .Title = "T"}), 0);
  EXPECT_EQ(files_.Content["a.pdf"], "pdf T");
  EXPECT_EQ(Run({.Files = {"beam.lbg"}, .Out = "a.gif"}), 2);
  EXPECT_THAT(complaints_.str(), HasSubstr("a.gif: a picture's name ends in"));
}

TEST_F(Render, SeveralFilesMakeAPictureEach) {
  EXPECT_EQ(Run({.Files = {"beam.lbg", "bad.lbg", "dir/other.lbg"}, .Out = "p/{}-x.svg"}), 1);
  EXPECT_TRUE(files_.Exists("p/beam-x.svg"));
  EXPECT_TRUE(files_.Exists("p/other-x.svg"));
  EXPECT_FALSE(files_.Exists("p/bad-x.svg"));
  EXPECT_EQ(complaints_.str(), "lobegraph-cli: bad.lbg: Error 62 (Input past end of file)\n");
}

TEST_F(Render, ABadOverlayIsNamedAndTheRestIsDrawn) {
  EXPECT_EQ(Run({.Files = {"beam.lbg"}, .Out = "o.svg", .Overlays = {"bad.lbg", "dir/other.lbg"}}), 1);
  EXPECT_THAT(complaints_.str(), HasSubstr("bad.lbg: Error 62"));
  EXPECT_EQ(CountOf(files_.Content["o.svg"], "<g class=\"trace\">"), 2);
}

TEST_F(Render, APatternThatIsRefusedMakesNoPicture) {
  files_.Content["short.lbg"] = StoredText(StoredBeam(36));
  EXPECT_EQ(Run({.Files = {"short.lbg"}, .Out = "o.svg"}), 1);
  EXPECT_THAT(complaints_.str(), HasSubstr("short.lbg: LBG011"));
  EXPECT_FALSE(files_.Exists("o.svg"));
}

TEST_F(Render, AColourFileThatIsMissingOrWrongIsWrongUse) {
  EXPECT_EQ(Run({.Files = {"beam.lbg"}, .Out = "o.svg", .ColoursFile = "none"}), 2);
  files_.Content["c.txt"] = "PlotLineColour=reddish\n";
  EXPECT_EQ(Run({.Files = {"beam.lbg"}, .Out = "o.svg", .ColoursFile = "c.txt"}), 2);
  EXPECT_THAT(complaints_.str(), HasSubstr("c.txt: Error 13"));
}

TEST(ColoursFile, WithoutAFileAreThoseOfAFreshInstallation) {
  const PlotColours colours = DefaultColours();
  EXPECT_EQ(colours.PlotBackground, (Colour{224, 224, 224}));
  EXPECT_EQ(colours.PlotGridColour, kBlack);
  EXPECT_EQ(colours.PlotLineColour, (Colour{128, 0, 0}));
  EXPECT_EQ(colours.PlotLineOverlayColour, (Colour{0, 128, 0}));
  EXPECT_EQ(colours.PlotUserColour, (Colour{0, 0, 128}));
  EXPECT_EQ(colours.PlotUserOverlayColour, (Colour{255, 255, 0}));
}

TEST(ColoursFile, ASettingsFileServesAsWell) {
  const PlotColours colours =
      ReadColours("# mine\n[Other]\nPlotLineColour=1\n[Settings]\nScale=35\nPlotLineColour=16711680\n");
  EXPECT_EQ(colours.PlotLineColour, (Colour{0, 0, 255}));
}

TEST(ColoursFile, AValueThatIsNoColourIsNamed) {
  for (const char* value : {"#12345", "#1234567", "#12345g", "red", ""}) {
    try {
      ReadColours(std::string("PlotGridColour=") + value);
      ADD_FAILURE() << value;
    } catch (const RunTimeError& error) {
      EXPECT_THAT(error.Detail(), HasSubstr("PlotGridColour="));
    }
  }
}

}  // namespace
}  // namespace lobegraph
