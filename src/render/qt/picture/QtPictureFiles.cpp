#include "render/qt/picture/QtPictureFiles.h"

#include <QBuffer>
#include <QMarginsF>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>

#include "render/qt/QtColour.h"
#include "render/qt/picture/PageSurface.h"

namespace lobegraph {
namespace {

/// A grid of more is drawn for each picture.
constexpr double kMostKeptPixels = 16e6;
constexpr double kPointsPerUnit = 72.0 / 96.0;

QSize UnitsOf(const Picture& picture) { return {kPictureWidth, PictureHeightOf(picture.Patterns.size())}; }

/// The drawing in the middle of a picture of other proportions.
QImage Centred(const QImage& drawing, QSize size, Colour background) {
  if (drawing.size() == size) return drawing;
  QImage picture(size, QImage::Format_RGB32);
  picture.fill(ToQt(background));
  QImage flat = drawing;
  flat.setDevicePixelRatio(1.0);
  QPainter(&picture).drawImage((size.width() - flat.width()) / 2, (size.height() - flat.height()) / 2, flat);
  return picture;
}

}  // namespace

void QtPictureFiles::LayGrid(const Picture& picture, QSize units, double ratio) {
  const Colour lines = picture.Colours.PlotGridColour;
  const Colour background = picture.Colours.PlotBackground;
  if (static_cast<double>(units.width()) * units.height() * ratio * ratio > kMostKeptPixels) {
    kept_.reset();
    surface_ = std::make_unique<ImageSurface>(units, ratio, background);
    return DrawGrid(*surface_, picture);
  }
  const bool fits =
      kept_ && kept_->Units == units && kept_->Ratio == ratio && kept_->Background == background;
  if (!fits) surface_ = std::make_unique<ImageSurface>(units, ratio, background);
  if (!fits || kept_->Style != picture.Style || kept_->Lines != lines) {
    DrawGrid(*surface_, picture);
    kept_ = KeptGrid{picture.Style, lines, background, units, ratio, surface_->Picture().copy()};
  }
  surface_->TakeUp(kept_->Pixels);
}

QImage QtPictureFiles::Draw(const Picture& picture, int width, int height) {
  startToolkit_();
  const QSize units = UnitsOf(picture);
  const QSize size = width > 0 ? QSize(width, height) : units;
  const double ratio = std::min(1.0 * size.width() / units.width(), 1.0 * size.height() / units.height());
  LayGrid(picture, units, ratio);
  DrawPatterns(*surface_, picture, [](std::string_view) {});
  return Centred(surface_->Picture(), size, picture.Colours.PlotBackground);
}

PixelView QtPictureFiles::ViewOf(const QImage& pixels) {
  const auto count = static_cast<std::size_t>(pixels.width()) * static_cast<std::size_t>(pixels.height());
  return {
      pixels.width(), pixels.height(), {reinterpret_cast<const std::uint32_t*>(pixels.constBits()), count}};
}

std::string QtPictureFiles::Png(const Picture& picture, int width, int height) {
  const QImage pixels = Draw(picture, width, height);
  return encoder_.Encode(ViewOf(pixels));
}

std::string QtPictureFiles::Pdf(const Picture& picture) {
  startToolkit_();
  const QSize units = UnitsOf(picture);
  QBuffer file;
  file.open(QIODevice::WriteOnly);
  {
    QPdfWriter page(&file);
    page.setPageSize(QPageSize(QSizeF(units) * kPointsPerUnit, QPageSize::Point));
    page.setPageMargins(QMarginsF());
    page.setTitle(
        QString::fromStdString(picture.Title.empty() ? picture.Patterns.front().Name : picture.Title));
    QPainter painter(&page);
    painter.scale(page.width() / double(units.width()), page.height() / double(units.height()));
    PageSurface surface(painter, units, picture.Colours.PlotBackground);
    DrawGrid(surface, picture);
    DrawPatterns(surface, picture, [](std::string_view) {});
  }
  return file.data().toStdString();
}

}  // namespace lobegraph
