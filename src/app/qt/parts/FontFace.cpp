#include "app/qt/parts/FontFace.h"

#include <QApplication>

namespace lobegraph {
namespace {
constexpr int kLargest = 12;
constexpr int kSmallest = 8;
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

int LargestFittingSize(const QString& face, const std::function<bool(const QFont&)>& fits) {
  QFont font(face);
  for (int size = kLargest; size > kSmallest; --size) {
    font.setPixelSize(size);
    if (fits(font)) return size;
  }
  return kSmallest;
}

}  // namespace lobegraph
