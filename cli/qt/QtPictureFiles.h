#pragma once

#include <QGuiApplication>
#include <QImage>
#include <memory>
#include <optional>

#include "cli/PngFile.h"
#include "cli/RenderCommand.h"
#include "render/qt/ImageSurface.h"

namespace lobegraph {

/// Draws with the toolkit, without a screen. Grids are kept, because a thousand pictures mostly share one.
class QtPictureFiles : public PictureFiles {
 public:
  std::string Png(const Picture& picture, int width, int height) override;
  std::string Pdf(const Picture& picture) override;

  /// The finished pixels that Png encodes.
  QImage Draw(const Picture& picture, int width, int height);
  static PixelView ViewOf(const QImage& pixels);

 private:
  struct KeptGrid {
    PlotStyle Style;
    Colour Lines;
    Colour Background;
    QSize Units;
    double Ratio = 1.0;
    QImage Pixels;
  };
  void StartToolkit();
  void LayGrid(const Picture& picture, QSize units, double ratio);

  std::unique_ptr<QGuiApplication> application_;
  std::unique_ptr<ImageSurface> surface_;
  std::optional<KeptGrid> kept_;
  PngEncoder encoder_;
};

}  // namespace lobegraph
