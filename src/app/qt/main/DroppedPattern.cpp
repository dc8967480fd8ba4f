#include "app/qt/main/DroppedPattern.h"

#include <QUrl>

namespace lobegraph {

std::optional<std::string> DroppedPattern(const QMimeData& dropped) {
  const QList<QUrl> urls = dropped.urls();
  if (urls.size() != 1 || !urls.first().isLocalFile()) return std::nullopt;
  const QString path = urls.first().toLocalFile();
  if (!path.endsWith(".lbg", Qt::CaseInsensitive)) return std::nullopt;
  return path.toStdString();
}

}  // namespace lobegraph
