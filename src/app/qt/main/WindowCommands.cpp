#include "app/qt/main/WindowCommands.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <map>
#include <utility>

namespace lobegraph {
namespace {

/// Of a picture in the clipboard: fine enough for a page.
constexpr int kClipboardPixelsPerUnit = 2;

}  // namespace

WindowCommands::WindowCommands(Parts parts) : QObject(&parts.Window), parts_(std::move(parts)) {
  connect(&parts_.Figures, &FiguresView::Closed, this, [this] { ShowFigures(false); });
}

MenuFront WindowCommands::Front() {
  return {.Do = [this](const MenuRow& row) { row.Id ? Press(*row.Id) : Do(row.Command); },
          .Possible = [this](const MenuRow& row) { return Possible(row); },
          .Offered = [this](const MenuRow& row) { return Offered(row); },
          .On = [this](const MenuRow& row) { return On(row); }};
}

void WindowCommands::Press(Control control) {
  static_cast<QAbstractButton&>(parts_.View.Widget(control)).click();
}

void WindowCommands::Do(MenuCommand command) {
  const auto run = [this](const char* name, const std::function<void()>& handler) {
    parts_.Run(name, handler);
  };
  switch (command) {
    case MenuCommand::Undo:
      return run("Undo", [this] { parts_.Form.Transform().Undo(); });
    case MenuCommand::Redo:
      return run("Redo", [this] { parts_.Form.Transform().Redo(); });
    case MenuCommand::CopyPicture:
      return run("CopyPicture", [this] { CopyPicture(); });
    case MenuCommand::CopyFigures:
      return run("CopyFigures", [this] { CopyFigures(); });
    case MenuCommand::SavePicture:
      return run("SavePicture", [this] { parts_.Form.Pictures().Save(); });
    case MenuCommand::Operator:
      return run("lblOperator_DblClick", [this] { parts_.Form.Click(Control::lblOperator); });
    case MenuCommand::About:
      return run("About", [this] { ShowAbout(); });
    case MenuCommand::Figures:
      return ShowFigures(!figuresShown_);
    case MenuCommand::FullScreen:
      return ToggleFullScreen();
    case MenuCommand::Settings:
      return parts_.OpenSettings();
    case MenuCommand::Guide: {
      QKeyEvent press(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier);
      QCoreApplication::sendEvent(&parts_.Window, &press);
      return;
    }
    case MenuCommand::None:
      return;
  }
}

bool WindowCommands::Possible(const MenuRow& row) const {
  if (row.Id) return parts_.View.Widget(*row.Id).isEnabled();
  return row.InARun || !parts_.Form.Shared().Run.Running();
}

/// What the panel hides with itself is still in reach; what a handler has hidden is not.
bool WindowCommands::Offered(const MenuRow& row) const {
  return !row.Id || !parts_.View.Widget(*row.Id).isHidden();
}

bool WindowCommands::On(const MenuRow& row) const {
  if (row.Id) return parts_.View.Checked(*row.Id);
  return row.Command == MenuCommand::FullScreen ? parts_.Window.isFullScreen() : figuresShown_;
}

void WindowCommands::ToggleFullScreen() {
  QWidget& window = parts_.Window;
  if (!window.isFullScreen()) {
    wasMaximised_ = window.isMaximized();
    return window.showFullScreen();
  }
  if (wasMaximised_)
    window.showMaximized();
  else
    window.showNormal();
}

void WindowCommands::ShowFigures(bool shown) {
  figuresShown_ = shown;
  parts_.Place();
}

void WindowCommands::CopyPicture() {
  if (!parts_.Form.Pictures().Ready()) return;
  const Picture picture = parts_.Form.Pictures().Shown();
  const int height = PictureHeightOf(picture.Patterns.size());
  auto* data = new QMimeData;
  data->setImageData(parts_.Pictures.Draw(picture, kPictureWidth * kClipboardPixelsPerUnit,
                                          height * kClipboardPixelsPerUnit));
  data->setData("image/svg+xml", QByteArray::fromStdString(SvgOf(picture)));
  QGuiApplication::clipboard()->setMimeData(data);
  Hint("The picture is in the clipboard.");
}

void WindowCommands::CopyFigures() {
  const PatternSession& pattern = parts_.Form.Pattern();
  const CutFigures figures = pattern.Drawable() ? FiguresOfRecord(pattern.Record()) : CutFigures{};
  QGuiApplication::clipboard()->setText(QString::fromStdString(FigureText(FigureRows(figures))));
  Hint("The figures are in the clipboard.");
}

void WindowCommands::ShowAbout() {
  const Globals& shared = parts_.Form.Shared();
  parts_.Form.Parts().Dialogs.ShowText(
      "Lobegraph " + shared.VersionText +
      "\r\nDraws the polar pattern of an antenna that turns on a rotator.\r\n" + shared.NoticeText +
      "\r\n\r\nFree software: GNU General Public License, version 3.\r\n" + "Qt " + qVersion() +
      ": GNU Lesser General Public License, version 3.");
}

}  // namespace lobegraph
