#pragma once

#include <QImage>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

#include "render/picture/PictureFiles.h"
#include "render/picture/PngFile.h"
#include "render/qt/ImageSurface.h"

namespace lobegraph {

/// Draws with the toolkit, without a screen. Grids are kept, because a thousand pictures mostly share one.
class QtPictureFiles : public PictureFiles {
 public:
  /// @param startToolkit called before anything is drawn: fonts need an application
  explicit QtPictureFiles(std::function<void()> startToolkit = [] {})
      : startToolkit_(std::move(startToolkit)) {}

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
  void LayGrid(const Picture& picture, QSize units, double ratio);

  std::function<void()> startToolkit_;
  std::unique_ptr<ImageSurface> surface_;
  std::optional<KeptGrid> kept_;
  PngEncoder encoder_;
};

}  // namespace lobegraph
