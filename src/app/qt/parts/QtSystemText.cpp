#include "app/qt/parts/QtSystemText.h"

#include <QDateTime>
#include <QLocale>

namespace lobegraph {

std::string QtSystemText::OneDecimal(float value) const {
  return QLocale::system().toString(static_cast<double>(value), 'f', 1).toStdString();
}

std::string QtSystemText::TimeAndDate() const {
  const QDateTime now = QDateTime::currentDateTime();
  const QLocale locale = QLocale::system();
  return (locale.toString(now.time(), QLocale::ShortFormat) + ' ' +
          locale.toString(now.date(), QLocale::ShortFormat))
      .toStdString();
}

std::string QtSystemText::UpperCase(const std::string& text) const {
  return QString::fromStdString(text).toUpper().toStdString();
}

}  // namespace lobegraph
