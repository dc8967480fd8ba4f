#include "app/qt/main/MainWindow.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QComboBox>
#include <QCoreApplication>
#include <QDir>
#include <QDropEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScreen>
#include <QShortcutEvent>
#include <QSlider>
#include <QTimer>
#include <algorithm>
#include <cstdlib>

#include "app/qt/input/ChooserDialog.h"
#include "app/qt/main/DroppedPattern.h"
#include "app/qt/main/LastWindow.h"
#include "app/qt/main/UndoKeys.h"
#include "app/qt/panel/WindowLayout.h"
#include "app/qt/settings/SettingsOpener.h"
#include "app/qt/settings/frmSettingsDialog.h"
#include "data/turns/TurnFolder.h"

namespace lobegraph {
namespace {
/// Smaller than this share of its natural size the plot would be beneath what stands on it.
constexpr double kLeastShare = 0.7;
}  // namespace

MainWindow::MainWindow(const std::string& versionText)
    : surfaceFrame_(this),
      surface_(QSize(kPlotWidth, kSurfaceHeight), devicePixelRatioF(), Colour{224, 224, 224}),
      drawing_(surface_),
      plot_(surface_, &surfaceFrame_),
      panelArea_(&surfaceFrame_),
      view_(*this, plot_, panelArea_.Panel(), surface_),
      editor_(this, dialogs_),
      printer_(*this, dialogs_, WindowPicture(*this, plot_, surface_, drawing_)),
      meters_(*shared_, store_, clock_, dialogs_),
      form_(MakePlatform(versionText), MakePlotGeometry(kSurfaceWidth, kSurfaceHeight, kPanelWidth)),
      analysis_(form_.Analysis(), view_, plot_,
                [this](const auto& handler) { Run("Form_MouseMove", handler); }),
      retry_(store_, [this](const std::string& line) { return ShowLine(line); }) {
  setObjectName("Form1");
  dialogs_.SetOwner(this);
  panelArea_.Panel().setObjectName("Frame1");
  plot_.AddLayer(form_.Axis());
  Connect();
  setMinimumSize((QSizeF(kPlotWidth, kSurfaceHeight) * kLeastShare).toSize());
  resize(FittingSize());
}

/// The natural size, or as much of it as the screen has room for beside a window's frame.
QSize MainWindow::FittingSize() const {
  constexpr QSize kFrame(12, 40);
  const QSize natural(view_.WidthOf(kGrownWidth), view_.WidthOf(kSurfaceHeight * kTwipsPerUnit));
  return natural.boundedTo(screen()->availableSize() - kFrame);
}

Platform MainWindow::MakePlatform(const std::string& versionText) {
  return {.View = view_,
          .Dialogs = dialogs_,
          .System = system_,
          .Files = files_,
          .End = *this,
          .Surface = drawing_,
          .Store = store_,
          .Time = clock_,
          .Pump = pump_,
          .SoundDevice = sound_,
          .Devices = meters_.Devices(),
          .MSComm1 = meters_.MSComm1(),
          .MeterProgram = meters_.External(),
          .Trigger = meters_.Line(),
          .VersionText = versionText,
          .WorkingFolder = (QDir::currentPath() + '/').toStdString(),
          .StateFolder = StateFolder(),
          .Desktop = &awake_,
          .Shared = shared_,
          .ShowChooser = [this] { ShowChooser(); },
          .frmEditLbg = &editor_,
          .Printer = &printer_};
}

void MainWindow::Connect() {
  for (const ControlRow& row : ControlTable()) ConnectControl(row);
  auto& description = static_cast<QLineEdit&>(view_.Widget(Control::txtDescription));
  connect(&description, &QLineEdit::textChanged, this, [this] { form_.File().txtDescription_Change(); });
  connect(&description, &QLineEdit::editingFinished, this, [this] { Click(Control::txtDescription); });
  editor_.Connect(form_.Editor(), [this](const auto& handler) { Run("frmEditLbg", handler); });
  view_.Widget(Control::lblOperator).setFocusPolicy(Qt::TabFocus);
  connect(&view_.Timer1(), &QTimer::timeout, this,
          [this] { Run("Timer1_Timer", [this] { form_.Run().Timer1_Timer(); }); });
  new SettingsOpener(
      *this, plot_, [this] { return !left_ && form_.Settings().MayOpen(SettingsWay::Mouse); },
      [this](SettingsWay way) { Run("frmSettings", [this, way] { OpenSettings(way); }); });
  new UndoKeys(
      *this, [this] { Run("Undo", [this] { form_.Transform().Undo(); }); },
      [this] { Run("Redo", [this] { form_.Transform().Redo(); }); });
  setAcceptDrops(true);
  connect(&plot_, &PlotWidget::RatioChanged, this, &MainWindow::DrawFinely);
}

void MainWindow::ConnectControl(const ControlRow& row) {
  QWidget& widget = view_.Widget(row.Id);
  const Control id = row.Id;
  widget.installEventFilter(this);
  if (auto* button =
          qobject_cast<QAbstractButton*>(&widget))  // a screen reader toggles a box without a click
    connect(button, button->isCheckable() ? &QAbstractButton::toggled : &QAbstractButton::clicked, this,
            [this, id, button] {
              if (button->isEnabled()) Click(id);
            });
  if (auto* slider = qobject_cast<QSlider*>(&widget))
    connect(slider, &QSlider::valueChanged, this, [this, id] { Click(id); });
  if (auto* dropDown = qobject_cast<QComboBox*>(&widget))
    connect(dropDown, &QComboBox::activated, this, [this, id] { Click(id); });
  auto* box = qobject_cast<QLineEdit*>(&widget);
  if (box != nullptr && row.Kind == ControlKind::TextBox && id != Control::txtDescription)
    connect(box, &QLineEdit::returnPressed, this, [this, id] { Click(id); });
}

void MainWindow::Run(std::string_view procedure, const std::function<void()>& handler) {
  if (left_) return;
  ++depth_;
  Guarded(dialogs_, procedure, handler);
  --depth_;
  if (depth_ > 0 || form_.Shared().Run.Running()) return;
  if (leavePending_) return Leave();
  PlaceSurface();  // a window manager that grants no other size sends no resize
}

void MainWindow::Leave() {
  if (left_) return;
  if (form_.Shared().Run.Running()) {
    leavePending_ = true;
    form_.Shared().Run.RequestClose();
    return;
  }
  leavePending_ = false;
  form_.Shell().Form_QueryUnload();
  if (!form_.Shell().Form_Unload()) LeaveWithModuleOpen();
}

/// The settings stay unsaved, and the meter window tells why.
void MainWindow::LeaveWithModuleOpen() {
  if (leavingNow_) return EndProgram();
  left_ = true;
  hide();
  meters_.Devices().ShowMeterWindow();
  EndWithLastWindow();
}

void MainWindow::Load() {
  form_.Shell().Form_Load();
  loaded_ = true;
}

void MainWindow::LeaveNow() {
  // Asked to end at the call sign prompt: no setting has been read yet, so there is none to save, and the
  // question comes again at the next start.
  if (!loaded_) std::_Exit(EXIT_SUCCESS);
  leavingNow_ = true;
  dialogs_.CloseAll();
  Leave();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  event->setAccepted(left_);
  Leave();
}

void MainWindow::OpenSettings(SettingsWay way) {
  frmSettings& settings = form_.Settings();
  if (!settings.MayOpen(way)) return;
  settings.Form_Load();
  frmSettingsDialog dialog(settings, dialogs_, QString::fromStdString(form_.Shared().NoticeText), this);
  dialogs_.Run(dialog);
  settings.Closed();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (!form_.Shared().Run.Running() && !dialogs_.IsOpen() && DroppedPattern(*event->mimeData()))
    event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
  const auto path = DroppedPattern(*event->mimeData());
  if (!path) return;
  event->acceptProposedAction();
  // A message box must not keep the program waiting from which the file was dragged.
  QTimer::singleShot(
      0, this, [this, file = *path] { Run("Form_OLEDragDrop", [&] { form_.File().LoadDropped(file); }); });
}

void MainWindow::ShowChooser() {
  ChooserDialog dialog(form_.Parts(), store_, meters_.Ports(), this);
  dialogs_.Run(dialog);
}

/// A run has the line for itself.
bool MainWindow::ShowLine(const std::string& hint) {
  if (form_.Shared().Run.Running()) return false;
  view_.SetText(Control::lblHint, hint);
  return true;
}

void MainWindow::EndAtOnce() { std::_Exit(EXIT_FAILURE); }

void MainWindow::EndProgram() {
  left_ = true;
  retry_.Finish();
  meters_.frmdBMeter().hide();
  hide();
  QCoreApplication::exit(EXIT_SUCCESS);
}

void MainWindow::resizeEvent(QResizeEvent*) { PlaceSurface(); }

void MainWindow::showEvent(QShowEvent*) {
  PlaceSurface();
  if (!form_.Shared().Run.Running()) form_.Display().Redraw();
}

void MainWindow::PlaceSurface() {
  surfaceFrame_.setGeometry(rect());
  const int panel = view_.Grown() ? std::min(panelArea_.WidthFor(height()), width() / 2) : 0;
  panelArea_.setVisible(view_.Grown());
  panelArea_.setGeometry(width() - panel, 0, panel, height());
  plot_.setGeometry(0, 0, width() - panel, height());
  view_.PlaceOnThePlot();
}

/// What is on the plot, a live trace included, drawn anew for the pixels that a unit now has.
void MainWindow::DrawFinely() {
  surface_.Resize(QSize(kPlotWidth, kSurfaceHeight), plot_.Ratio());
  drawing_.DrawOn(surface_);
  plot_.ShowDrawing();
}

bool MainWindow::event(QEvent* event) {
  // A box of the program's own is part of its window: closing it is no return to the window, or a message
  // that the redraw itself shows would come back for ever.
  if (event->type() == QEvent::WindowActivate) {
    const bool fromOwnBox = std::exchange(boxesBefore_, dialogs_.Opened()) != dialogs_.Opened();
    if (!fromOwnBox && !dialogs_.IsOpen())
      QTimer::singleShot(0, this,
                         [this] { Run("Form_Activate", [this] { form_.Shell().Form_Activate(); }); });
  }
  return QWidget::event(event);
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && SwallowsKey(*watched, static_cast<const QKeyEvent&>(*event)))
    return true;
  if (event->type() == QEvent::Shortcut && ClicksByKey(*watched, static_cast<const QShortcutEvent&>(*event)))
    return true;
  if (event->type() == QEvent::MouseButtonDblClick && watched == &view_.Widget(Control::lblOperator))
    return Click(Control::lblOperator), true;  // the plot below takes a double-click for the settings
  if (event->type() == QEvent::FocusIn) {
    auto* box = qobject_cast<QLineEdit*>(watched);
    if (box != nullptr && watched != &view_.Widget(Control::txtDescription))
      QTimer::singleShot(0, box, &QLineEdit::selectAll);
  }
  return QWidget::eventFilter(watched, event);
}

/// At once: the toolkit would click a tenth of a second later, when a turn that has begun meanwhile has
/// locked the button.
bool MainWindow::ClicksByKey(QObject& watched, const QShortcutEvent& key) {
  auto* button = qobject_cast<QAbstractButton*>(&watched);
  if (button == nullptr || key.isAmbiguous()) return false;
  button->click();
  return true;
}

bool MainWindow::SwallowsKey(QObject& watched, const QKeyEvent& key) {
  const bool enter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
  // A held Enter on Collect Data must not press Halt, which gets the focus next.
  if (key.isAutoRepeat() && (enter || key.key() == Qt::Key_Space) && qobject_cast<QAbstractButton*>(&watched))
    return true;
  if (&watched == &view_.Widget(Control::txtDescription)) return key.text() == "\"";
  if (&watched != &view_.Widget(Control::lblOperator) || !enter) return false;
  Click(Control::lblOperator);
  return true;
}

}  // namespace lobegraph
