#include "app/qt/parts/FontFace.h"

#include <QApplication>
#include <QFontInfo>
#include <algorithm>

namespace lobegraph {
namespace {
constexpr int kUsualPixels = 12;

int MenuFontPixels() { return std::max(kUsualPixels, QFontInfo(QApplication::font("QMenu")).pixelSize()); }
}  // namespace

QString MenuFontFace() { return QApplication::font("QMenu").family(); }

void ApplyFace(QWidget& form, const QString& face) {
  const auto controls = form.findChildren<QWidget*>();
  for (QWidget* control : controls) {
    QFont font = control->font();
    font.setFamily(face);
    control->setFont(font);
  }
}

qreal FontFactor() { return qreal(MenuFontPixels()) / kUsualPixels; }

int LargestFittingSize(const QString& face, const std::function<bool(const QFont&)>& fits) {
  const int smallest = MenuFontPixels() * 2 / 3;
  QFont font(face);
  for (int size = MenuFontPixels(); size > smallest; --size) {
    font.setPixelSize(size);
    if (fits(font)) return size;
  }
  return smallest;
}

}  // namespace lobegraph
