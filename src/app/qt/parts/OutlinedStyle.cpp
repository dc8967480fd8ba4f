#include "app/qt/parts/OutlinedStyle.h"

#include <QPainter>
#include <QStyleOption>

namespace lobegraph {
namespace {

constexpr int kMiddleLightness = 128;
constexpr float kShareOfText = 0.45F;
constexpr double kCorner = 2.0;

bool HasOutline(QStyle::PrimitiveElement element) {
  return element == QStyle::PE_IndicatorCheckBox || element == QStyle::PE_IndicatorRadioButton ||
         element == QStyle::PE_FrameLineEdit;
}

QColor Between(const QColor& ground, const QColor& text) {
  const auto mix = [](float from, float to) { return from + kShareOfText * (to - from); };
  return QColor::fromRgbF(mix(ground.redF(), text.redF()), mix(ground.greenF(), text.greenF()),
                          mix(ground.blueF(), text.blueF()));
}

}  // namespace

void OutlinedStyle::polish(QPalette& palette) {
  QProxyStyle::polish(palette);
  for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    QColor faint = palette.color(group, QPalette::Text);
    faint.setAlphaF(kShareOfText);
    palette.setColor(group, QPalette::PlaceholderText, faint);
  }
}

void OutlinedStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                  const QWidget* widget) const {
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  const QColor ground = option->palette.color(QPalette::Window);
  if (!HasOutline(element) || ground.lightness() >= kMiddleLightness) return;
  if (element == PE_FrameLineEdit && option->state.testFlag(State_HasFocus)) return;
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(Between(ground, option->palette.color(QPalette::WindowText)));
  const QRectF outline = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
  if (element == PE_IndicatorRadioButton)
    painter->drawEllipse(outline);
  else
    painter->drawRoundedRect(outline, kCorner, kCorner);
  painter->restore();
}

}  // namespace lobegraph
