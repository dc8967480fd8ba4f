#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QStyle>
#include <QTest>
#include <QTimer>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "app/qt/main/MainWindow.h"
#include "data/formats/PatternFile.h"
#include "support/TemporaryFolder.h"
#include "support/TestRecord.h"

namespace lobegraph::test {

/// Answers each box that opens while it lives: one call a box, which must close it.
class BoxWatch : public QObject {
 public:
  explicit BoxWatch(std::function<void(QDialog&)> answer) : answer_(std::move(answer)) {
    connect(&timer_, &QTimer::timeout, this, &BoxWatch::Look);
    timer_.start(5);
  }
  /// Closes message boxes with OK and keeps their texts.
  BoxWatch() : BoxWatch([](QDialog& box) { box.accept(); }) {}

  std::vector<std::string> Texts;  ///< of the message boxes, in order
  int Seen = 0;

 private:
  void Look() {
    auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (box == nullptr || box == last_ || !box->isVisible()) return;
    last_ = box;
    ++Seen;
    if (const auto* message = qobject_cast<QMessageBox*>(box)) Texts.push_back(message->text().toStdString());
    answer_(*box);
  }

  std::function<void(QDialog&)> answer_;
  QTimer timer_;
  QPointer<QDialog> last_;
};

/// What a file dialog is told by somebody who types a path and presses Enter.
inline void TypePath(QDialog& box, const std::string& path) {
  auto* name = box.findChild<QLineEdit*>("fileNameEdit");
  name->setText(QString::fromStdString(path));
  QTest::keyClick(name, Qt::Key_Return);
}

/// Settings of a former run, by key.
using Stored = std::map<std::string, std::string>;

/// As main does. Another style makes the toolkit forget the fonts of its classes, so it is set once.
inline void UseTheProgramsStyle() {
  if (QApplication::style()->name() != "fusion") QApplication::setStyle("Fusion");
}

/// A home of the test's own, past the first start; no sound server and no print server answers.
class OwnHome {
 public:
  explicit OwnHome(const Stored& settings = {}) {
    setenv("XDG_CONFIG_HOME", Folder.File("config").c_str(), 1);
    setenv("XDG_STATE_HOME", Folder.File("state").c_str(), 1);
    setenv("PULSE_SERVER", ("unix:" + Folder.File("no-server")).c_str(), 1);
    setenv("CUPS_SERVER", "/nowhere/cups.sock", 1);
    UseTheProgramsStyle();
    FileSettingsStore store;
    store.Save("Lobegraph", "Settings", "Username", "N0CALL");
    for (const auto& [key, value] : settings) store.Save("Lobegraph", "Settings", key, value);
  }
  std::string Setting(const std::string& key) const {
    return FileSettingsStore().Get("Lobegraph", "Settings", key, "(missing)");
  }
  TemporaryFolder Folder;
};

/// The real main window on the screen, operated through its widgets, found by their names.
class RealWindow {
 public:
  explicit RealWindow(const Stored& settings = {}) : Home(settings), Window("V2.1.0") {
    Window.Load();
    Window.show();
    if (!QTest::qWaitForWindowActive(&Window)) ADD_FAILURE() << "the window never became active";
    Settle();
  }

  /// Once a program was left, no box opens until an event loop begins anew.
  ~RealWindow() {
    QTimer::singleShot(0, qApp, &QCoreApplication::quit);
    QApplication::exec();
  }

  template <typename Kind>
  Kind& Find(const char* name) {
    auto* found = Window.findChild<Kind*>(name);
    if (found == nullptr) throw std::logic_error(std::string("no such control: ") + name);
    return *found;
  }
  QWidget& Widget(const ControlRow& row) { return Find<QWidget>(std::string(row.Name).c_str()); }
  void Press(const char* button) { Find<QAbstractButton>(button).click(); }
  void Enter(const char* box, const QString& text) {
    auto& edit = Find<QLineEdit>(box);
    edit.setFocus();
    edit.setText(text);
    QTest::keyClick(&edit, Qt::Key_Return);
  }
  std::string Text(const char* box) { return Find<QLineEdit>(box).text().toStdString(); }
  std::string Caption(const char* label) { return Find<QLabel>(label).text().toStdString(); }

  /// As a click on the window: the platform of these tests activates none by itself.
  static void Activate(QWidget& window) {
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    Settle();
  }
  /// Whatever is due now has happened.
  static void Settle() { QTest::qWait(20); }

  /// A drawing of the grid shows the time; the mark tells whether there was one.
  void MarkDrawing() { Find<QLabel>("lblDateTime").setText("mark"); }
  bool DrawnSinceMark() { return Caption("lblDateTime") != "mark"; }

  std::string WritePattern(const std::string& name, const ReadingsRecord& record) {
    const std::string path = Home.Folder.File(name);
    std::ofstream(path, std::ios::binary) << WritePatternText(record, "V1.0.0");
    return path;
  }
  void Load(const std::string& path) {
    BoxWatch typing([&](QDialog& box) { TypePath(box, path); });
    Press("cmdGetData");
    Activate(Window);
  }
  void LoadBeam(const std::string& description = "Three elements") {
    ReadingsRecord record = BeamRecord(360, 20);
    record.Description = description;
    record.Elements = "  3";
    record.ScaleSetting = 40.F;
    Load(WritePattern("beam.lbg", record));
  }

  OwnHome Home;
  MainWindow Window;
};

}  // namespace lobegraph::test
