#include "app/qt/settings/frmSettingsDialog.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QColorDialog>
#include <QGroupBox>
#include <QLabel>
#include <QTest>
#include <QTimer>

#include "app/qt/panel/WindowLayout.h"
#include "support/AppFixture.h"

namespace lobegraph {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The dialog on an invisible screen, used with keys and clicks. Its messages are answered by a double.
class frmSettingsDialogTest : public ::testing::Test, protected AppFixture {
 protected:
  QtDialogs boxes_;
  std::unique_ptr<frmSettingsDialog> dialog_;

  frmSettingsDialogTest() {
    Start();
    Form.Settings().Form_Load();
    dialog_ = std::make_unique<frmSettingsDialog>(Form.Settings(), boxes_, "The notice", nullptr);
    dialog_->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(dialog_.get()));
    Forget();
  }

  template <typename Widget>
  Widget& Find(const char* name) {
    auto* found = dialog_->findChild<Widget*>(name);
    if (found == nullptr) throw std::logic_error(name);
    return *found;
  }
  QLineEdit& Box(const char* name) { return Find<QLineEdit>(name); }
  std::string TextOf(const char* name) { return Box(name).text().toStdString(); }
  void Type(const char* name, const char* text) {
    QTest::mouseClick(&Box(name), Qt::LeftButton);
    Box(name).selectAll();
    QTest::keyClicks(&Box(name), text);
  }
  void Click(const char* name) {
    QTest::mouseClick(&Find<QPushButton>(name), Qt::LeftButton);
    QApplication::processEvents();
  }
  void Key(Qt::Key key) {
    QTest::keyClick(dialog_->focusWidget(), key);
    QApplication::processEvents();
  }
  std::string Focus() { return dialog_->focusWidget()->objectName().toStdString(); }
  QColor ColourOf(const char* name) { return QColor(Find<QPushButton>(name).grab().toImage().pixel(20, 10)); }
};

TEST_F(frmSettingsDialogTest, EveryCaptionIsExact) {
  EXPECT_EQ(dialog_->windowTitle(), "Lobegraph Settings");
  std::vector<std::string> groups;
  for (const auto* group : dialog_->findChildren<QGroupBox*>())
    groups.push_back(group->title().toStdString());
  EXPECT_THAT(groups,
              ::testing::UnorderedElementsAre(" Auto Start/Stop Characterics ", " Sound Card Characterics ",
                                              "Other", "Plotting Colours"));
  std::vector<std::string> labels;
  for (const auto* label : dialog_->findChildren<QLabel*>()) labels.push_back(label->text().toStdString());
  for (const SettingsBoxRow& row : SettingsBoxes()) EXPECT_THAT(labels, Contains(std::string(row.Label)));
  for (const SettingsColourRow& row : SettingsColours())
    EXPECT_THAT(labels, Contains(std::string(row.Label)));
  for (const char* text :
       {"Primary", "Overlay", "The notice",
        "After changing any of the values in the boxes use the TAB key to accept the entry and "
        "move to the next entry."})
    EXPECT_THAT(labels, Contains(text));
  const std::pair<const char*, const char*> buttons[] = {
      {"cmdSetDefaultValues", "Set default values"},
      {"cmdSetDefaultSoundCardValues", "Set default values"},
      {"cmdSetDefaultOtherValues", "Set default values"},
      {"cmdDefault", "Set default colours"},
      {"cmdTextOnOff", "Text On/Off"},
      {"cmdOK", "OK"},
      {"cmdCancel", "Cancel"}};
  for (const auto& [name, caption] : buttons) EXPECT_EQ(Find<QPushButton>(name).text(), caption);
  EXPECT_EQ(Find<QLabel>("lblNotice").text(), "The notice");
}

TEST_F(frmSettingsDialogTest, TheBoxesAreFilled) {
  EXPECT_EQ(TextOf("txtDetectStartLevel"), "7");
  EXPECT_EQ(TextOf("txtStartupDelay"), "0.25");
  EXPECT_EQ(TextOf("txtDetectStopLevel"), "7");
  EXPECT_EQ(TextOf("txtDetectStopNumberOfReadings"), "5");
  EXPECT_EQ(TextOf("txtPeakInputLevel"), "1000");
  EXPECT_EQ(TextOf("txtMaxRotationTime"), "2");
  EXPECT_EQ(TextOf("txtSpikeDetectLevel"), "50");
}

TEST_F(frmSettingsDialogTest, ThePeakLevelTellsWhatItMeansForMeters) {
  EXPECT_TRUE(Box("txtPeakInputLevel").toolTip().contains("1000"));
  EXPECT_TRUE(Box("txtPeakInputLevel").toolTip().contains("eters"));
}

TEST_F(frmSettingsDialogTest, EveryWidgetSaysWhatItIsToAScreenReader) {
  for (const auto* box : dialog_->findChildren<QLineEdit*>()) EXPECT_FALSE(box->accessibleName().isEmpty());
  for (const auto* button : dialog_->findChildren<QPushButton*>())
    EXPECT_FALSE(button->text().isEmpty() && button->accessibleName().isEmpty());
}

TEST_F(frmSettingsDialogTest, TabGoesThroughTheGroupsOneAfterTheOther) {
  std::vector<std::string> stops{Focus()};
  for (int i = 0; i < 19; ++i) {
    Key(Qt::Key_Tab);
    stops.push_back(Focus());
  }
  EXPECT_THAT(stops, ElementsAre("txtDetectStartLevel", "txtStartupDelay", "txtDetectStopLevel",
                                 "txtDetectStopNumberOfReadings", "cmdSetDefaultValues", "txtPeakInputLevel",
                                 "cmdSetDefaultSoundCardValues", "txtMaxRotationTime", "txtSpikeDetectLevel",
                                 "cmdSetDefaultOtherValues", "cmdPlotUserColour", "cmdPlotUserOverlayColour",
                                 "cmdPlotLineColour", "cmdPlotLineOverlayColour", "cmdPlotGridColour",
                                 "cmdPlotBackground", "cmdDefault", "cmdTextOnOff", "cmdOK", "cmdCancel"));
}

TEST_F(frmSettingsDialogTest, TheFramesShareTheirColumns) {
  const auto left = [&](const QWidget& widget) { return widget.mapTo(dialog_.get(), QPoint(0, 0)).x(); };
  const QWidget& overlay = Find<QWidget>("cmdPlotUserOverlayColour");
  for (const SettingsBoxRow& row : SettingsBoxes()) {
    const QLineEdit& box = Box(std::string(row.Name).c_str());
    EXPECT_EQ(left(box), left(overlay)) << row.Name;
    EXPECT_EQ(box.width(), overlay.width()) << row.Name;
  }
  const QWidget& button = Find<QWidget>("cmdDefault");
  for (const char* name :
       {"cmdSetDefaultValues", "cmdSetDefaultSoundCardValues", "cmdSetDefaultOtherValues"}) {
    EXPECT_EQ(left(Find<QWidget>(name)), left(button)) << name;
    EXPECT_EQ(Find<QWidget>(name).width(), button.width()) << name;
  }
}

TEST_F(frmSettingsDialogTest, NothingIsCut) {
  for (const auto* label : dialog_->findChildren<QLabel*>()) {
    const int width = label->width();
    EXPECT_GE(label->height(), label->heightForWidth(width)) << label->text().toStdString();
    EXPECT_LE(label->fontMetrics().boundingRect(0, 0, width, 999, Qt::TextWordWrap, label->text()).width(),
              width)
        << label->text().toStdString();
  }
  for (const auto* button : dialog_->findChildren<QPushButton*>())
    EXPECT_GE(button->width(), button->sizeHint().width()) << button->objectName().toStdString();
}

TEST_F(frmSettingsDialogTest, IsNoTallerThanTheMainWindow) { EXPECT_LE(dialog_->height(), kSurfaceHeight); }

TEST_F(frmSettingsDialogTest, EnterIsInertInEveryBoxAndOnEveryButton) {
  Type("txtDetectStartLevel", "99");
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
    for (const SettingsBoxRow& row : SettingsBoxes()) QTest::keyClick(&Box(row.Name.data()), key);
    for (auto* button : dialog_->findChildren<QPushButton*>()) QTest::keyClick(button, key);
  }
  EXPECT_TRUE(dialog_->isVisible());
  EXPECT_EQ(TextOf("txtDetectStartLevel"), "99");
  EXPECT_THAT(Log, IsEmpty());
}

TEST_F(frmSettingsDialogTest, ARefusedBoxKeepsTheFocusAfterItsMessage) {
  Type("txtDetectStartLevel", "41");
  Key(Qt::Key_Tab);
  EXPECT_THAT(Dialogs.Texts(), ElementsAre("LBG024 Detect Start Level must be in the range 1 to 40"));
  EXPECT_EQ(Focus(), "txtDetectStartLevel");
  Type("txtDetectStartLevel", "40");
  Key(Qt::Key_Tab);
  EXPECT_EQ(Focus(), "txtStartupDelay");
  EXPECT_EQ(Dialogs.Messages.size(), 1U);
}

TEST_F(frmSettingsDialogTest, AClickIntoAnotherBoxIsRefusedAsWell) {
  Type("txtStartupDelay", "2");
  QTest::mouseClick(&Box("txtSpikeDetectLevel"), Qt::LeftButton);
  QApplication::processEvents();
  EXPECT_THAT(Dialogs.Texts(), ElementsAre("LBG023 Startup delay must be in the range 0.00 to 1.00"));
  EXPECT_EQ(Focus(), "txtStartupDelay");
}

TEST_F(frmSettingsDialogTest, TwoBadBoxesDoNotFightForTheFocus) {
  Box("txtSpikeDetectLevel").setText("5");
  Type("txtStartupDelay", "2");
  QTest::mouseClick(&Box("txtSpikeDetectLevel"), Qt::LeftButton);
  QApplication::processEvents();
  EXPECT_EQ(Dialogs.Messages.size(), 1U);
  EXPECT_EQ(Focus(), "txtStartupDelay");
}

TEST_F(frmSettingsDialogTest, OkMeetsTheBoxThatHasTheFocus) {
  Type("txtMaxRotationTime", "21");
  Click("cmdOK");
  EXPECT_THAT(Dialogs.Texts(), ElementsAre("LBG027 Maximum rotation time must be in the range 2 to 20"));
  EXPECT_TRUE(dialog_->isVisible());
  EXPECT_EQ(Focus(), "txtMaxRotationTime");
  EXPECT_THAT(Only("save"), IsEmpty());
  Type("txtMaxRotationTime", "20.9");
  Click("cmdOK");
  EXPECT_FALSE(dialog_->isVisible());
  EXPECT_EQ(dialog_->result(), QDialog::Accepted);
  EXPECT_EQ(Store.Held("MaxRotationTime"), "20");
  EXPECT_EQ(View.Of(Control::Slider2).Maximum, 1200);
}

TEST_F(frmSettingsDialogTest, OkSavesWhatTheBoxesHold) {
  Type("txtDetectStartLevel", "40.9");
  Type("txtStartupDelay", "0.5");
  Click("cmdOK");
  EXPECT_EQ(Only("save ").size(), 13U);
  EXPECT_EQ(Store.Held("DetectStartLevel"), "40.9");
  EXPECT_EQ(Store.Held("StartupDelay"), "0.5");
}

TEST_F(frmSettingsDialogTest, EscapeAndTheCloseBoxAndCancelValidateNothingAndTakeAllBack) {
  const std::function<void()> ways[] = {[this] { Key(Qt::Key_Escape); }, [this] { dialog_->close(); },
                                        [this] { Click("cmdCancel"); }};
  for (const auto& leave : ways) {
    dialog_.reset();
    Form.Settings().Closed();
    Form.Settings().Form_Load();
    dialog_ = std::make_unique<frmSettingsDialog>(Form.Settings(), boxes_, "", nullptr);
    dialog_->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog_.get()));
    Click("cmdDefault");
    Type("txtPeakInputLevel", "500");
    Key(Qt::Key_Tab);
    Type("txtDetectStopLevel", "nothing");
    Forget();
    leave();
    EXPECT_FALSE(dialog_->isVisible());
    EXPECT_EQ(dialog_->result(), QDialog::Rejected);
    EXPECT_THAT(Dialogs.Messages, IsEmpty());
    EXPECT_THAT(Only("save"), IsEmpty());
    EXPECT_EQ(Shared.Settings.PeakInputLevel, 1000.F);
    EXPECT_EQ(Shared.Settings.PlotLineColour, 128);
    EXPECT_TRUE(Logged("window background #e0e0e0"));
  }
}

TEST_F(frmSettingsDialogTest, DefaultButtonsFillTheirBoxes) {
  for (const SettingsBoxRow& row : SettingsBoxes()) Box(row.Name.data()).setText("11");
  Box("txtDetectStartLevel").setFocus();
  Click("cmdSetDefaultValues");
  Click("cmdSetDefaultSoundCardValues");
  Click("cmdSetDefaultOtherValues");
  for (const SettingsBoxRow& row : SettingsBoxes())
    EXPECT_EQ(TextOf(row.Name.data()), row.Default) << row.Name;
}

TEST_F(frmSettingsDialogTest, AColourButtonShowsItsColourAndADefaultAtOnce) {
  EXPECT_EQ(ColourOf("cmdPlotUserColour"), QColor(0, 0, 128));
  EXPECT_EQ(ColourOf("cmdPlotUserOverlayColour"), QColor(255, 255, 0));
  EXPECT_EQ(ColourOf("cmdPlotLineColour"), QColor(128, 0, 0));
  EXPECT_EQ(ColourOf("cmdPlotLineOverlayColour"), QColor(0, 128, 0));
  EXPECT_EQ(ColourOf("cmdPlotGridColour"), QColor(0, 0, 0));
  EXPECT_EQ(ColourOf("cmdPlotBackground"), QColor(224, 224, 224));
  Click("cmdDefault");
  EXPECT_EQ(ColourOf("cmdPlotUserColour"), QColor(0, 0, 255));
  EXPECT_EQ(ColourOf("cmdPlotLineColour"), QColor(255, 0, 0));
}

TEST_F(frmSettingsDialogTest, AChosenColourIsTakenAndACancelledOneIsNot) {
  const auto answer = [this](bool accept) {
    QTimer::singleShot(0, [accept] {
      auto* choice = qobject_cast<QColorDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(choice, nullptr);
      EXPECT_TRUE(choice->testOption(QColorDialog::DontUseNativeDialog));
      choice->setCurrentColor(QColor(1, 2, 3));
      accept ? choice->accept() : choice->reject();
    });
    Click("cmdPlotBackground");
  };
  answer(false);
  EXPECT_EQ(Shared.Settings.PlotBackground, 14737632);
  answer(true);
  EXPECT_EQ(Shared.Settings.PlotBackground, 1 + 2 * 256 + 3 * 65536);
  EXPECT_EQ(ColourOf("cmdPlotBackground"), QColor(1, 2, 3));
  EXPECT_TRUE(Logged("window background #010203"));
}

TEST_F(frmSettingsDialogTest, TextOnOffActsAtOnce) {
  Click("cmdTextOnOff");
  EXPECT_FALSE(Shared.PlotTextShown);
  Click("cmdTextOnOff");
  EXPECT_TRUE(Shared.PlotTextShown);
}

TEST_F(frmSettingsDialogTest, ClosingAllInTheMiddleOfAColourEndsBoth) {
  dialog_->hide();
  QTimer::singleShot(0, [this] { Click("cmdPlotGridColour"); });
  QTimer::singleShot(50, [this] { boxes_.CloseAll(); });
  EXPECT_EQ(boxes_.Run(*dialog_), QDialog::Rejected);
  EXPECT_FALSE(boxes_.IsOpen());
}

}  // namespace
}  // namespace lobegraph
