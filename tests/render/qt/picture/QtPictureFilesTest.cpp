#include "render/qt/picture/QtPictureFiles.h"

#include <gmock/gmock.h>

#include "processing/PreparePlot.h"
#include "support/TestRecord.h"

namespace lobegraph {
namespace {

PicturePattern PatternOf(ReadingsRecord record, const PlotStyle& style = {}) {
  return {PreparePlot(record, PlacementOf(record), style, {}), record.Description};
}

constexpr PlotColours kColours{.PlotBackground = {224, 224, 224},
                               .PlotLineColour = {128, 0, 0},
                               .PlotLineOverlayColour = {0, 128, 0},
                               .PlotUserColour = {0, 0, 128},
                               .PlotUserOverlayColour = {255, 255, 0}};

Picture BeamPicture(const PlotStyle& style = {}) {
  ReadingsRecord beam = BeamRecord(360, 40);
  beam.Description = "test beam";
  return {style, {PatternOf(beam, style)}, kColours, ""};
}

QImage Decoded(const std::string& png) {
  return QImage::fromData(reinterpret_cast<const uchar*>(png.data()), static_cast<int>(png.size()), "PNG");
}

TEST(QtPictureFiles, APngHoldsTheVeryPixelsThatWereDrawn) {
  QtPictureFiles pictures;
  const QImage decoded = Decoded(pictures.Png(BeamPicture(), 0, 0));
  const QImage drawn = pictures.Draw(BeamPicture(), 0, 0);
  ASSERT_EQ(decoded.size(), QSize(501, 560));
  EXPECT_EQ(decoded.convertToFormat(QImage::Format_RGB32), drawn);
  EXPECT_EQ(decoded.dotsPerMeterX(), 3780);
}

TEST(QtPictureFiles, AKeptGridGivesTheSamePictureAsAFreshOne) {
  QtPictureFiles kept;
  for (const auto scale :
       {PlotScale::Logarithmic, PlotScale::Logarithmic, PlotScale::Linear, PlotScale::Db50}) {
    for (const bool rectangular : {false, true, true}) {
      const Picture picture = BeamPicture({.Rectangular = rectangular, .Scale = scale});
      EXPECT_EQ(kept.Draw(picture, 0, 0), QtPictureFiles().Draw(picture, 0, 0));
    }
  }
}

TEST(QtPictureFiles, ColoursAndScaleOfTheNextPictureCount) {
  QtPictureFiles kept;
  kept.Draw(BeamPicture(), 0, 0);
  Picture other = BeamPicture();
  other.Colours.PlotBackground = {1, 2, 3};
  EXPECT_EQ(kept.Draw(other, 0, 0), QtPictureFiles().Draw(other, 0, 0));
  other.Colours.PlotGridColour = {90, 2, 3};
  EXPECT_EQ(kept.Draw(other, 0, 0), QtPictureFiles().Draw(other, 0, 0));
  other.Style.ScaleSetting = 80;
  EXPECT_EQ(kept.Draw(other, 0, 0), QtPictureFiles().Draw(other, 0, 0));
}

TEST(QtPictureFiles, ASizeScalesTheDrawingAndKeepsItsProportions) {
  QtPictureFiles pictures;
  EXPECT_EQ(pictures.Draw(BeamPicture(), 1002, 1120).size(), QSize(1002, 1120));
  const QImage wide = pictures.Draw(BeamPicture(), 900, 560);
  ASSERT_EQ(wide.size(), QSize(900, 560));
  EXPECT_EQ(wide.pixelColor(10, 283), QColor(224, 224, 224)) << "beside the drawing is background";
  const int left = (900 - 501) / 2;
  EXPECT_EQ(wide.copy(left, 0, 501, 560).pixel(250, 283), pictures.Draw(BeamPicture(), 0, 0).pixel(250, 283));
}

TEST(QtPictureFiles, APdfIsOneVectorPageOfThePicturesSize) {
  QtPictureFiles pictures;
  Picture picture = BeamPicture();
  picture.Title = "Title";
  const std::string pdf = pictures.Pdf(picture);
  const auto holds = [&](const char* text) { return pdf.find(text) != std::string::npos; };
  EXPECT_TRUE(pdf.starts_with("%PDF-"));
  EXPECT_TRUE(holds("/Count 1"));
  EXPECT_FALSE(holds("/Subtype /Image"));
  EXPECT_TRUE(holds("[0 0 376.000000 420.000000]")) << "501 x 560 units are 375.75 x 420 points";
}

}  // namespace
}  // namespace lobegraph
