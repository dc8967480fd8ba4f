// How the program leaves.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/AppFixture.h"

namespace lobegraph {
namespace {

using enum Control;
using testing::ElementsAre;
using testing::IsEmpty;

class ShutdownTest : public testing::Test, protected AppFixture {
 protected:
  ShutdownTest() { Start(); }
  void OpenModule() {
    Inputs.Usb.OpenDevice("DLP2232M B");
    Forget();
  }
};

TEST_F(ShutdownTest, UnloadsInItsOrder) {
  View.Of(Slider1).Value = 42;
  View.Of(Slider2).Value = 77;
  View.Of(chkAutoStart).Checked = true;
  View.Of(chkTrigger).Checked = true;
  Press(cmdLinear);
  Press(cmdLogLin);
  Forget();
  OpenModule();
  Inputs.MSComm1.IsOpen = Inputs.MSCommTrigger.IsOpen = true;
  EXPECT_TRUE(Form.Shell().Form_Unload());
  EXPECT_THAT(Log, ElementsAre("module close 77", "save Scale=42", "save RotateTime=77", "save AutoStart=1",
                               "save AutoStop=0", "save Trigger=1", "save LinearMode=True",
                               "save ShowLogScale=False", "meter close", "trigger close", "EndProgram"));
}

TEST_F(ShutdownTest, EndsWhateverABoxIsStillOpenFor) {
  Form.Shell().Form_Unload();
  EXPECT_TRUE(Shared.Run.CloseRequested);
}

TEST_F(ShutdownTest, CaptureThatStillRunsIsStoppedBeforeTheEnd) {
  Shared.Sound.SoundCaptureActive = true;
  Form.Shell().Form_Unload();
  EXPECT_FALSE(Shared.Sound.SoundCaptureActive);
}

TEST_F(ShutdownTest, AFailedUsbCloseSavesNothingAndDoesNotEnd) {
  OpenModule();
  Inputs.Library.Failures["close 77"] = kFtIoError;
  EXPECT_FALSE(Form.Shell().Form_Unload());
  EXPECT_THAT(Log, ElementsAre("module close 77", "lblStatus Attempt to close DLP2232M failed."));
  EXPECT_EQ(End.InGoodOrder, 0);
}

TEST_F(ShutdownTest, ExitEndsTheProgramOnce) {
  Press(cmdExit);
  EXPECT_EQ(End.InGoodOrder, 1);
  EXPECT_TRUE(Logged("save Scale=35"));
}

TEST_F(ShutdownTest, ExitEndsTheProgramEvenWhenTheUsbModuleDoesNotClose) {
  OpenModule();
  Inputs.Library.Failures["close 77"] = kFtIoError;
  Press(cmdExit);
  EXPECT_EQ(Log.front(), "module close 77");
  EXPECT_EQ(Log.back(), "EndProgram");
  EXPECT_THAT(Only("save "), IsEmpty());
}

TEST_F(ShutdownTest, QueryUnloadReleasesTheSoundCard) {
  Shared.Sound.SoundCaptureActive = true;
  Form.Shell().Form_QueryUnload();
  EXPECT_FALSE(Shared.Sound.SoundCaptureActive);
}

TEST_F(ShutdownTest, QueryUnloadLeavesAMeterAlone) {
  Shared.Settings.Input.InputDeviceIsdBMeter = true;
  Shared.Sound.SoundCaptureActive = true;
  Form.Shell().Form_QueryUnload();
  EXPECT_TRUE(Shared.Sound.SoundCaptureActive);
  EXPECT_THAT(Log, IsEmpty());
}

TEST_F(ShutdownTest, AStoreThatCannotSaveDoesNotHoldTheProgram) {
  Store.FailsToSave = true;
  EXPECT_TRUE(Form.Shell().Form_Unload());
  EXPECT_EQ(End.InGoodOrder, 1);
  EXPECT_THAT(Dialogs.Texts(), IsEmpty());
}

TEST_F(ShutdownTest, TheOperatorsNameOfThisRunIsNotSaved) {
  Dialogs.Answer = "DL0XY";
  Press(lblOperator);
  Form.Shell().Form_Unload();
  EXPECT_EQ(Store.Held("Username"), "N0CALL");
}

}  // namespace
}  // namespace lobegraph
