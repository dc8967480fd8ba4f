#pragma once

#include <QBoxLayout>
#include <QTextBrowser>
#include <QWidget>

namespace lobegraph {

/// The guide in a window of the program (`frmHelp`), from the pages that the program carries with it.
class HelpWindow final : public QWidget {
  Q_OBJECT

 public:
  /// The guide's window over the given one: the one that is there, or a new one, which ends with its owner.
  static HelpWindow& Of(QWidget* owner);

  /// Shows a page and comes to the front. @param file "window.html" @param anchor empty, or a place in it
  void Show(const QString& file, const QString& anchor);

 private:
  explicit HelpWindow(QWidget* owner);
  void AddButton(QBoxLayout& row, const char* name, const char* caption, const char* keys,
                 void (QTextBrowser::*action)());

  QTextBrowser* pages_;
};

/// Where the pages stand in the program.
inline constexpr const char* kHelpFolder = "qrc:/help/";

}  // namespace lobegraph
