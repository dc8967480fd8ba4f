#include "app/qt/parts/ElidingLabel.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace lobegraph {

QString ElidingLabel::ShownText() const {
  // A caption with an accelerator mark or a line break never stands here.
  return fontMetrics().elidedText(Empty() ? placeholder_ : text(), Qt::ElideRight, contentsRect().width());
}

void ElidingLabel::paintEvent(QPaintEvent* event) {
  const QString shown = ShownText();
  if (shown == text()) QLabel::paintEvent(event);
  QPainter painter(this);
  if (hasFocus()) PaintFocus(painter);
  if (shown == text()) return;
  style()->drawItemText(&painter, contentsRect(), static_cast<int>(alignment()), palette(), isEnabled(),
                        shown, foregroundRole());
}

void ElidingLabel::PaintFocus(QPainter& painter) const {
  painter.setPen(palette().color(QPalette::Highlight));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

bool ElidingLabel::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip || Empty() || ShownText() == text()) return QLabel::event(event);
  const QString whole =
      text().toHtmlEscaped() + (toolTip().isEmpty() ? "" : "<br>" + toolTip().toHtmlEscaped());
  QToolTip::showText(static_cast<const QHelpEvent*>(event)->globalPos(), "<p>" + whole + "</p>", this);
  return true;
}

}  // namespace lobegraph
