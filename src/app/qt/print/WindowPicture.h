#pragma once

#include <QImage>
#include <QWidget>

#include "app/qt/plot/PlotWidget.h"
#include "render/ReplaySurface.h"
#include "render/qt/ImageSurface.h"

namespace lobegraph {

/// The inside of the main window as a person sees it, painted once more by its own widgets, so much finer
/// than the screen that a printer finds no pixels in it.
class WindowPicture {
 public:
  /// All of them outlive it. @param shown the plot as the screen has it @param drawing what is drawn on it
  WindowPicture(QWidget& window, PlotWidget& plot, const ImageSurface& shown, const ReplaySurface& drawing)
      : window_(window), plot_(plot), shown_(shown), drawing_(drawing) {}

  /// Its device pixel ratio is the number of pixels to a unit; the longer side has 2400 to 4800 pixels, more
  /// on a larger screen.
  QImage Take() const;

 private:
  QImage PlotFor(qreal ratio) const;

  QWidget& window_;
  PlotWidget& plot_;
  const ImageSurface& shown_;
  const ReplaySurface& drawing_;
};

}  // namespace lobegraph
