#include "app/qt/settings/frmSettingsDialog.h"

#include <QColorDialog>
#include <QFocusEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "app/qt/parts/FontFace.h"
#include "render/qt/QtColour.h"

namespace lobegraph {
namespace {

constexpr int kBoxWidth = 72;
// The dialog is no taller than the main window, which a small screen holds.
constexpr int kSide = 9;
constexpr int kClose = 4;
constexpr int kButtonRoom = 12;  // beside a caption
constexpr int kLabelGap = 8;     // between a label and its box

/// The columns that all frames share. A value's label reaches over the primary colours.
enum Column { kLabelColumn, kPrimaryColumn, kOverlayColumn, kButtonColumn };
constexpr int kValueColumn = kOverlayColumn;

constexpr const char* kTabHint =
    "After changing any of the values in the boxes use the TAB key to accept the entry and move to the next "
    "entry.";
constexpr const char* kPeakToolTip =
    "Full scale of the sound card. Meters deliver levels up to 1000: with one of them leave it at 1000.";

QString Q(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QLabel* MakeLabel(const QString& text) {
  auto* label = new QLabel(text);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  return label;
}

/// Neither the desktop's window colour nor a style's shading may tint a colour that is to be judged.
QString ColourSheet(QColor colour) {
  return QString(
             "QPushButton { background-color: %1; border: 1px solid palette(mid); min-height: 20px; }"
             "QPushButton:focus { border: 3px solid palette(highlight); }")
      .arg(colour.name());
}

/// The two longest labels of the boxes take two lines, all others one.
int LabelWidth(const QFontMetrics& metrics) {
  std::vector<int> widths;
  for (const SettingsBoxRow& row : SettingsBoxes()) widths.push_back(metrics.horizontalAdvance(Q(row.Label)));
  std::sort(widths.rbegin(), widths.rend());
  return widths.at(2) + kLabelGap;
}

/// Whether a focus that goes leaves the dialog's box for good: not for a menu, nor for another window.
bool LeavesForGood(const QFocusEvent& event) {
  return event.reason() != Qt::ActiveWindowFocusReason && event.reason() != Qt::PopupFocusReason;
}

}  // namespace

frmSettingsDialog::frmSettingsDialog(frmSettings& commands, QtDialogs& dialogs, const QString& notice,
                                     QWidget* parent)
    : QDialog(parent), commands_(commands), dialogs_(dialogs) {
  setObjectName("frmSettings");
  setWindowTitle("Lobegraph Settings");
  auto* all = new QVBoxLayout(this);
  all->setSpacing(kClose);
  all->addWidget(MakeGroup(SettingsGroup::AutoStartStop, " Auto Start/Stop Characterics ",
                           "cmdSetDefaultValues", "auto start and stop"));
  all->addWidget(MakeGroup(SettingsGroup::SoundCard, " Sound Card Characterics ",
                           "cmdSetDefaultSoundCardValues", "the sound card"));
  all->addWidget(MakeGroup(SettingsGroup::Other, "Other", "cmdSetDefaultOtherValues", "rotation and spikes"));
  all->addWidget(MakeColours());
  all->addWidget(MakeFoot(notice));
  all->setSizeConstraint(QLayout::SetFixedSize);
  BoxOf(SettingsBox::txtPeakInputLevel).setToolTip(kPeakToolTip);
  ApplyFace(*this, MenuFontFace());
  AlignFrames();
  PaintColours();
  FillBoxes();
  BoxOf(SettingsBox::txtDetectStartLevel).setFocus();
}

QGridLayout* frmSettingsDialog::MakeFrame(const QString& caption) {
  auto* grid = new QGridLayout(new QGroupBox(caption, this));
  grid->setContentsMargins(kSide, kClose, kSide, kClose);
  grid->setVerticalSpacing(kClose);
  frames_.push_back(grid);
  return grid;
}

QWidget* frmSettingsDialog::MakeGroup(SettingsGroup group, const QString& caption, const QString& defaultName,
                                      const QString& about) {
  QGridLayout* grid = MakeFrame(caption);
  for (const SettingsBoxRow& row : SettingsBoxes()) {
    if (row.Group != group) continue;
    grid->addWidget(MakeLabel(Q(row.Label)), grid->rowCount(), kLabelColumn, 1, 2);
    grid->addWidget(MakeBox(row), grid->rowCount() - 1, kValueColumn);
  }
  QPushButton* button = MakeButton(defaultName, "Set default values", [this, group] {
    commands_.cmdSetDefaultValues_Click(group);
    FillBoxes();
  });
  button->setAccessibleName("Set default values of " + about);
  grid->addWidget(button, grid->rowCount() - 1, kButtonColumn);
  return grid->parentWidget();
}

QLineEdit* frmSettingsDialog::MakeBox(const SettingsBoxRow& row) {
  auto* box = new QLineEdit(this);
  box->setObjectName(Q(row.Name));
  box->setAccessibleName(Q(row.Label));
  box->setFixedWidth(kBoxWidth);
  box->installEventFilter(this);
  boxes_.at(static_cast<std::size_t>(row.Id)) = box;
  connect(box, &QLineEdit::textChanged, this,
          [this, id = row.Id](const QString& text) { commands_.Dialog().SetText(id, text.toStdString()); });
  return box;
}

QWidget* frmSettingsDialog::MakeColours() {
  QGridLayout* grid = MakeFrame("Plotting Colours");
  grid->addWidget(MakeLabel("Primary"), 0, kPrimaryColumn, Qt::AlignHCenter);
  grid->addWidget(MakeLabel("Overlay"), 0, kOverlayColumn, Qt::AlignHCenter);
  for (std::size_t i = 0; i < SettingsColours().size(); ++i) {
    const SettingsColourRow& row = SettingsColours()[i];
    if (!row.Overlay) grid->addWidget(MakeLabel(Q(row.Label)), grid->rowCount(), kLabelColumn);
    grid->addWidget(MakeColourButton(i), grid->rowCount() - 1, row.Overlay ? kOverlayColumn : kPrimaryColumn);
  }
  QPushButton* button = MakeButton("cmdDefault", "Set default colours", [this] {
    commands_.cmdDefault_Click();
    PaintColours();
  });
  grid->addWidget(button, grid->rowCount() - 1, kButtonColumn);
  return grid->parentWidget();
}

/// Labels, boxes and buttons of all frames stand below each other, whatever the desktop's font measures.
void frmSettingsDialog::AlignFrames() {
  int buttonWidth = 0;
  for (QPushButton* button : findChildren<QPushButton*>()) {
    if (!button->text().isEmpty()) button->setMinimumWidth(button->sizeHint().width() + kButtonRoom);
    buttonWidth = std::max(buttonWidth, button->minimumWidth());
  }
  const int labelWidth = LabelWidth(fontMetrics());
  for (QGridLayout* grid : frames_) {
    grid->setColumnMinimumWidth(kLabelColumn, labelWidth - kBoxWidth - grid->horizontalSpacing());
    grid->setColumnMinimumWidth(kPrimaryColumn, kBoxWidth);
    grid->setColumnMinimumWidth(kOverlayColumn, kBoxWidth);
    grid->setColumnMinimumWidth(kButtonColumn, buttonWidth);
  }
}

QPushButton* frmSettingsDialog::MakeColourButton(std::size_t index) {
  const SettingsColourRow& row = SettingsColours()[index];
  QPushButton* button = MakeButton(Q(row.Name), "", [this, index] { ChooseColour(index); });
  button->setAccessibleName(Q(row.Label) + (row.Overlay ? " Overlay" : " Primary"));
  button->setToolTip(row.Overlay ? "Choose the colour for an overlay" : "Choose the colour");
  colours_.push_back(button);
  return button;
}

QWidget* frmSettingsDialog::MakeFoot(const QString& notice) {
  auto* foot = new QWidget(this);
  auto* grid = new QGridLayout(foot);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->addWidget(MakeLabel(kTabHint), 0, 0, 1, 4);
  QPushButton* text = MakeButton("cmdTextOnOff", "Text On/Off", [this] { commands_.cmdTextOnOff_Click(); });
  text->setToolTip("Hide what is written on the plot, or show it again");
  grid->addWidget(text, 1, 0);
  auto* lblNotice = MakeLabel(notice);
  lblNotice->setObjectName("lblNotice");
  lblNotice->setAlignment(Qt::AlignCenter);
  grid->addWidget(lblNotice, 1, 1);
  grid->addWidget(MakePlainButton("cmdOK", "OK", [this] { accept(); }), 1, 2);
  grid->addWidget(MakePlainButton("cmdCancel", "Cancel", [this] { reject(); }), 1, 3);
  grid->setColumnStretch(1, 1);
  return foot;
}

QPushButton* frmSettingsDialog::MakeButton(const QString& name, const QString& caption,
                                           const std::function<void()>& pressed) {
  return MakePlainButton(name, caption, [this, pressed] {
    if (LeaveBoxInHand()) pressed();
  });
}

QPushButton* frmSettingsDialog::MakePlainButton(const QString& name, const QString& caption,
                                                const std::function<void()>& pressed) {
  auto* button = new QPushButton(caption);
  button->setObjectName(name);
  button->setAutoDefault(false);
  button->setFocusPolicy(Qt::TabFocus);
  connect(button, &QPushButton::clicked, this, pressed);
  return button;
}

void frmSettingsDialog::FillBoxes() {
  for (const SettingsBoxRow& row : SettingsBoxes())
    BoxOf(row.Id).setText(QString::fromStdString(commands_.Dialog().Text(row.Id)));
}

void frmSettingsDialog::PaintColours() {
  for (std::size_t i = 0; i < colours_.size(); ++i)
    colours_[i]->setStyleSheet(
        ColourSheet(ToQt(Colour::FromStored(commands_.Dialog().ColourOf(SettingsColours()[i])))));
}

void frmSettingsDialog::ChooseColour(std::size_t index) {
  const SettingsColourRow& row = SettingsColours()[index];
  QColorDialog choice(ToQt(Colour::FromStored(commands_.Dialog().ColourOf(row))), this);
  choice.setObjectName("CommonDialog1");
  choice.setWindowTitle(Q(row.Label) + (row.Overlay ? " Overlay" : ""));
  choice.setOption(QColorDialog::DontUseNativeDialog);
  std::optional<Colour> chosen;
  if (dialogs_.Run(choice) == QDialog::Accepted) {
    const QColor colour = choice.selectedColor();
    chosen = Colour{static_cast<std::uint8_t>(colour.red()), static_cast<std::uint8_t>(colour.green()),
                    static_cast<std::uint8_t>(colour.blue())};
  }
  commands_.ChooseColour(row, chosen);
  PaintColours();
}

void frmSettingsDialog::accept() {
  if (!LeaveBoxInHand()) return;
  closing_ = true;
  commands_.cmdOK_Click();
  QDialog::accept();
}

void frmSettingsDialog::reject() {
  closing_ = true;
  commands_.cmdCancel_Click();
  QDialog::reject();
}

bool frmSettingsDialog::LeaveBoxInHand() {
  if (returning_) return false;
  for (const SettingsBoxRow& row : SettingsBoxes())
    if (focusWidget() == &BoxOf(row.Id)) return commands_.Validate(row.Id);
  return true;
}

void frmSettingsDialog::LeaveBox(SettingsBox box) {
  if (returning_ || closing_ || !commands_.Dialog().Validate(box)) return;
  returning_ = true;
  QTimer::singleShot(0, this, [this, box] { ReturnTo(box); });
}

/// The focus is back before the message is shown, so that what the user types next mends the entry.
void frmSettingsDialog::ReturnTo(SettingsBox box) {
  if (!closing_) {
    BoxOf(box).setFocus();
    commands_.Validate(box);
    BoxOf(box).selectAll();
  }
  returning_ = false;
}

bool frmSettingsDialog::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusOut && LeavesForGood(static_cast<const QFocusEvent&>(*event)))
    for (const SettingsBoxRow& row : SettingsBoxes())
      if (watched == &BoxOf(row.Id)) LeaveBox(row.Id);
  return QDialog::eventFilter(watched, event);
}

void frmSettingsDialog::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return;
  QDialog::keyPressEvent(event);
}

}  // namespace lobegraph
