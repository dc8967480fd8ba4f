#include "render/picture/SvgSurface.h"

#include <gmock/gmock.h>

#include "render/TextWidth.h"
#include "render/picture/XmlText.h"

namespace lobegraph {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

constexpr Colour kRed{255, 0, 10};

TEST(SvgSurface, ADocumentHasTheSizeAndTheBackground) {
  const std::string document = SvgSurface(501, 560, {224, 225, 226}).Document();
  EXPECT_THAT(document, HasSubstr("<?xml version=\"1.0\" encoding=\"UTF-8\"?>"));
  EXPECT_THAT(document, HasSubstr("width=\"501\" height=\"560\" viewBox=\"0 0 501 560\""));
  EXPECT_THAT(document, HasSubstr("<rect class=\"background\" x=\"0\" y=\"0\" width=\"501\" height=\"560\" "
                                  "fill=\"#e0e1e2\"/>"));
}

TEST(SvgSurface, EachOperationIsOneElementWithItsCoordinates) {
  SvgSurface surface(10, 10, {});
  surface.Line({1, 2.5F}, {-0.00001F, 4}, kRed);
  EXPECT_THAT(
      surface.Document(),
      HasSubstr("<line x1=\"1\" y1=\"2.5\" x2=\"0\" y2=\"4\" stroke=\"#ff000a\" stroke-width=\"1\"/>"));
  surface.SetPenWidth(2);
  surface.Circle({250.5F, 283}, 185.87F, kRed);
  EXPECT_THAT(surface.Document(), HasSubstr("<circle cx=\"250.5\" cy=\"283\" r=\"185.87\" stroke=\"#ff000a\" "
                                            "stroke-width=\"2\"/>"));
  surface.SetFillColour({1, 2, 3});
  surface.SetFillStyle(FillStyle::Solid);
  surface.Circle({1, 1}, 7, kRed);
  EXPECT_THAT(surface.Document(),
              HasSubstr("r=\"7\" stroke=\"#ff000a\" stroke-width=\"2\" fill=\"#010203\"/>"));
  surface.Dot({5, 6}, kRed);
  EXPECT_THAT(surface.Document(),
              HasSubstr("<rect class=\"dot\" x=\"4\" y=\"5\" width=\"2\" height=\"2\" fill=\"#ff000a\"/>"));
  surface.BoxOutline({1, 2}, {4, 6}, kRed);
  EXPECT_THAT(surface.Document(),
              HasSubstr("<rect class=\"outline\" x=\"1\" y=\"2\" width=\"3\" height=\"4\" "
                        "stroke=\"#ff000a\" stroke-width=\"2\"/>"));
  surface.FilledBox({1, 2}, {4, 6}, kRed);
  EXPECT_THAT(surface.Document(), HasSubstr("<rect class=\"area\" x=\"1\" y=\"2\" width=\"3\" height=\"4\" "
                                            "fill=\"#ff000a\"/>"));
}

TEST(SvgSurface, ATextStandsAtItsTopLeftCornerOnAGroundOfItsOwn) {
  SvgSurface surface(10, 10, {9, 9, 9});
  surface.SetFontName("Arial");
  surface.SetFontSize(7.5F);
  surface.SetCurrentPosition({242.5F, 90});
  surface.Text(" -2 ", kRed);
  const std::string document = surface.Document();
  EXPECT_THAT(document, HasSubstr("<text xml:space=\"preserve\" x=\"242.5\" y=\"90\" dy=\"9.05\" "
                                  "font-family=\"Arial, Helvetica, sans-serif\" font-size=\"10\" "
                                  "fill=\"#ff000a\"> -2 </text>"));
  EXPECT_THAT(document, HasSubstr("<rect class=\"ground\" x=\"242.5\" y=\"90.89\" width=\"14.45\" "
                                  "height=\"9.16\" fill=\"#090909\"/>"));
  EXPECT_EQ(surface.CurrentPosition(), (SurfacePoint{242.5F, 90})) << "the position stays";
}

TEST(SvgSurface, LinesDotsAndBoxesMoveTheCurrentPosition) {
  SvgSurface surface(10, 10, {});
  surface.LineTo({3, 4}, kRed);
  EXPECT_EQ(surface.CurrentPosition(), (SurfacePoint{3, 4}));
  surface.Dot({5, 6}, kRed);
  EXPECT_EQ(surface.CurrentPosition(), (SurfacePoint{5, 6}));
  surface.FilledBox({0, 0}, {7, 8}, kRed);
  EXPECT_EQ(surface.CurrentPosition(), (SurfacePoint{7, 8}));
}

TEST(SvgSurface, ClearForgetsWhatWasDrawn) {
  SvgSurface surface(10, 10, {});
  surface.Line({1, 1}, {2, 2}, kRed);
  surface.Clear();
  EXPECT_THAT(surface.Document(), Not(HasSubstr("<line")));
  EXPECT_EQ(surface.CurrentPosition(), SurfacePoint{});
}

TEST(SvgSurface, TextsAndTitlesAreEscaped) {
  EXPECT_EQ(XmlText("a<b>&\"'"), "a&lt;b&gt;&amp;&quot;&#39;");
  EXPECT_EQ(XmlText("\xC3\xA4"), "\xC3\xA4");
  EXPECT_EQ(XmlText("\x01\x1B\xFF"), "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD") << "may not stand in a document";
  EXPECT_EQ(XmlText("\xEF\xBF\xBF"), "\xEF\xBF\xBD");
  SvgSurface surface(1, 1, {});
  surface.SetTitle("<&>");
  EXPECT_THAT(surface.Document(), HasSubstr("<title>&lt;&amp;&gt;</title>"));
}

TEST(SvgSurface, GroupsHoldWhatIsDrawnInThem) {
  SvgSurface surface(10, 10, {});
  surface.Line({1, 1}, {2, 2}, kRed);
  surface.GroupAll("grid");
  surface.BeginGroup("trace");
  surface.Line({3, 3}, {4, 4}, kRed);
  surface.EndGroup();
  const std::string document = surface.Document();
  EXPECT_LT(document.find("<g class=\"grid\">"), document.find("x1=\"1\""));
  EXPECT_LT(document.find("</g>"), document.find("<g class=\"trace\">"));
  EXPECT_LT(document.find("<g class=\"trace\">"), document.find("x1=\"3\""));
}

TEST(TextWidth, LabelsAreAsWideAsInTheTypeface) {
  EXPECT_FLOAT_EQ(ArialWidth("0 dB"), 0.556F + 0.278F + 0.556F + 0.667F);
  EXPECT_FLOAT_EQ(ArialWidth(" -10 "), 2 * 0.278F + 0.333F + 2 * 0.556F);
  EXPECT_FLOAT_EQ(ArialWidth("\xC3\xA4"), 0.556F) << "one letter, two bytes";
}

TEST(TextWidth, ALongTextIsCutBetweenLetters) {
  EXPECT_EQ(FittingText("short", 100, 10), "short");
  const std::string cut = FittingText("\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4", 21, 10);
  EXPECT_EQ(cut, "\xC3\xA4\xC3\xA4...");
  EXPECT_EQ(FittingText("mmm", 10, 10), "...") << "even where not a letter has room";
}

// A rule that looks at every character for each one that is too many would not come to an end here.
TEST(TextWidth, ATextOfManyMegabytesIsCutAsFastAsAShortOne) {
  EXPECT_EQ(FittingText(std::string(16U << 20U, 'x'), 40, 10), "xxxxx...");
}

TEST(XmlTextTest, AMillionForbiddenCharactersAreReplacedInOneWalk) {
  std::string text;
  for (int i = 0; i < 1'000'000; ++i) text += "\xEF\xBF\xBF";
  EXPECT_EQ(XmlText(text).size(), text.size());
}

}  // namespace
}  // namespace lobegraph
