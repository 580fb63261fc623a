#pragma once

#include "config/TarvexController.h"
#include "config/TarvexData.h"
#include "model/RegisterObject.h"
#include "model/TarvexProperty.h"
#include "support/ExpectError.h"
#include "support/FakeErrorLog.h"
#include "support/FakeFileSystem.h"
#include "support/FakeProgress.h"
#include "support/InitFileBuilder.h"
#include "support/ScriptedPrompts.h"

namespace tarvex {

/// A controller on files in memory.
class ControllerTest : public testing::Test {
protected:
    static constexpr const char* kInitPath = "/tmp/Tarvex.xml";
    static constexpr const char* kDataPath = "/home/user/mine.xml";

    /// Gives the controller a new init file.
    void Use(const std::string& text)
    {
        files.files[kInitPath] = text;
        initFile = std::make_shared<TarvexData>(state, files);
        ASSERT_TRUE(initFile->InitToRead(kInitPath));
        controller.Init(initFile);
    }

    /// A controller with device "Board" in use and its names read.
    void UseBoard(const InitFileBuilder& file = {})
    {
        Use(file.Text());
        controller.GetDeviceNames(kAllOptions, kRegisterProtocol);
        ASSERT_TRUE(controller.InitDevice(file.device));
        kept = controller.GetI2CRegister(0);
    }

    /// The device of UseBoard is in use as it was.
    void ExpectBoardUntouched()
    {
        EXPECT_EQ(controller.deviceName(), "Board");
        EXPECT_EQ(controller.pid(), 0x0A51);
        EXPECT_EQ(controller.BoardID(), 0xA100);
        ASSERT_EQ(controller.GetI2CRegisterCount(), 2);
        EXPECT_EQ(controller.GetI2CRegister(0), kept);
        EXPECT_EQ(controller.GetI2CRegisterByName("Gain"), kept);
    }

    ProgramState state;
    FakeFileSystem files;
    FakeErrorLog log;
    ScriptedPrompts prompts;
    FakeProgress window;
    std::shared_ptr<TarvexData> initFile;
    TarvexController controller{state, files, log, prompts, window, window};
    std::shared_ptr<RegisterObject> kept;
};

}
