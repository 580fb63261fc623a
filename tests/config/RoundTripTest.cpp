#include "config/ControllerFixture.h"
#include "config/DataFileSaving.h"
#include "support/FakeClock.h"

#include "comm/DemoDevice.h"

#include <fstream>
#include <iterator>

namespace tarvex {
namespace {

std::string ShippedInitFile()
{
    std::ifstream file(TARVEX_SHARE "/Tarvex.xml", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// A program that was just started, on files that outlive it.
class Program {
public:
    Program(FakeFileSystem& files, const std::string& initPath) : files_(files)
    {
        EXPECT_TRUE(initFile_->InitToRead(initPath));
        controller.Init(initFile_);
        devices = controller.GetDeviceNames(kAllOptions, kRegisterProtocol);
    }

    void Save(const std::string& path) { SaveDataFile({state_, files_, clock_}, *initFile_, controller, path); }

    std::vector<std::int32_t> Values() const
    {
        std::vector<std::int32_t> values;
        for (std::int16_t i = 0; i < controller.GetI2CRegisterCount(); ++i)
            values.push_back(controller.GetI2CRegister(i)->value());
        return values;
    }

private:
    FakeFileSystem& files_;
    ProgramState state_;
    FakeClock clock_;
    FakeErrorLog log_;
    ScriptedPrompts prompts_;
    FakeProgress window_;
    std::shared_ptr<TarvexData> initFile_ = std::make_shared<TarvexData>(state_, files_);

public:
    mutable TarvexController controller{state_, files_, log_, prompts_, window_, window_};
    std::vector<std::string> devices;
};

constexpr const char* kInit = "/tmp/Tarvex.xml";
constexpr const char* kData = "/home/user/mine.xml";

/// Gives every register a value of its own.
void Number(const Program& program, std::int32_t step)
{
    for (std::int16_t i = 0; i < program.controller.GetI2CRegisterCount(); ++i) {
        const auto each = program.controller.GetI2CRegister(i);
        each->value((i * step) & each->MaxValue());
    }
}

/// Saves the device, and finds the same in a program that is started then and opens the file.
std::unique_ptr<Program> Reopened(FakeFileSystem& files, const std::string& device, std::int32_t step)
{
    Program before(files, kInit);
    EXPECT_TRUE(before.controller.InitDevice(device));
    Number(before, step);
    before.Save(kData);
    auto after = std::make_unique<Program>(files, kInit);
    EXPECT_TRUE(after->controller.InitDeviceFromFile(kData));
    EXPECT_EQ(after->controller.GetComponentName(after->controller.deviceName()),
              before.controller.GetComponentName(device)); // a file does not tell the devices of one map apart
    EXPECT_EQ(after->Values(), before.Values());
    return after;
}

/// The values of the map are those read back, after a load into a board.
void ExpectReachesTheBoard(Program& program)
{
    const auto values = program.Values();
    ScriptedPrompts prompts;
    DemoDevice board(prompts);
    program.controller.WriteI2CRegister(board, "", -1);
    Number(program, 11);
    EXPECT_NE(program.Values(), values);
    program.controller.ReadI2CRegister(board, "", -1);
    EXPECT_EQ(program.Values(), values);
}

}

TEST(RoundTrip, EveryShippedProductComesBackAndReachesTheBoard)
{
    FakeFileSystem files;
    files.files[kInit] = ShippedInitFile();
    const auto devices = Program(files, kInit).devices;
    EXPECT_EQ(devices.size(), 8U);
    for (const std::string& device : devices) {
        SCOPED_TRACE(device);
        ExpectReachesTheBoard(*Reopened(files, device, 37));
    }
}

TEST(RoundTrip, ALargeMapKeepsEveryValue)
{
    FakeFileSystem files;
    files.files[kInit] = ManyRegisters(10000).Text();
    const auto program = Reopened(files, "Board", 1);
    const auto values = program->Values();
    EXPECT_EQ(values.size(), 10000U);
    EXPECT_EQ(values[255], 255);
    EXPECT_EQ(values[256], 0);
    ExpectReachesTheBoard(*program);
}

}
