#pragma once

#include <QObject>
#include <QPointer>
#include <QProcess>
#include <QString>
#include <QWidget>

#include "app/help/HelpPages.h"

namespace lobegraph {

/// F1 in any window of the program opens the guide at the page about that window: in the desktop's viewer for
/// compiled guides, or in a window of the program where there is no such viewer, none that can be told a
/// page, or no compiled guide.
class HelpOpener final : public QObject {
 public:
  /// @param application whose key presses are looked at
  /// @param helpFile path of the compiled guide
  HelpOpener(QObject& application, QString helpFile);

  /// What F1 in a widget opens. @var Anchor empty, or a place in the page
  struct Place {
    std::string_view Page;
    QString Anchor;
  };
  static Place PlaceOf(const QWidget& widget);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Open(const Place& place, QWidget& from);
  /// The viewer's answer has come. @param desktopFile empty: there is none
  void OpenWith(const QString& desktopFile, const Place& place);
  void OpenOwn(const Place& place);

  QString helpFile_;
  QPointer<QWidget> from_;
};

}  // namespace lobegraph
