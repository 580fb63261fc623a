#include "ui/wizards/vexlon/VexlonFiles.h"

#include "config/IProgress.h"
#include "model/RegisterObject.h"
#include "ui/wizards/vexlon/VexlonSteps.h"

namespace tarvex {

namespace {

constexpr const char* kProbed = "DE_TOP";
constexpr const char* kSource = "Vexlon_Wizard::OpenFile";

}

bool VexlonFiles::Open(const std::string& path)
{
    IWizardHost& host = board_.Host();
    if (!host.EnsureLink())
        return false;
    const std::int32_t before = board_.Value(kProbed);
    if (!IsPresetWritable()) {
        Restore(before);
        host.Services().prompts.Tell(
            "You must select one of the writable presets (0-2) on the rotary encoder to apply the file settings");
        return false;
    }
    const auto progress = host.BeginProgress();
    if (!host.Controller().InitDeviceFromFile(path)) {
        Restore(before);
        host.Services().prompts.Tell("Unable to open file " + path + ". See TarvexError.log for details");
        return false;
    }
    WriteAll();
    return true;
}

bool VexlonFiles::IsPresetWritable()
{
    RegisterObject& probed = board_.Register(kProbed);
    const std::int32_t before = probed.value();
    const std::int32_t probe = ProbeValue(before, probed.MaxValue());
    IWizardHost& host = board_.Host();
    try {
        return host.Write(kSource, kProbed, [&] { board_.Write(kProbed, probe); }) &&
               host.Read(kSource, kProbed, [&] { board_.Read(kProbed); }) && probed.value() == probe;
    } catch (...) {
        probed.value(before); // what the board holds is not known, but it is not for the probe to stay
        throw;
    }
}

void VexlonFiles::Restore(std::int32_t value)
{
    board_.Host().Write(kSource, kProbed, [&] { board_.Write(kProbed, value); });
}

void VexlonFiles::WriteAll()
{
    IWizardHost& host = board_.Host();
    const std::int16_t count = host.Controller().GetI2CRegisterCount();
    bool allWritten = true;
    {
        const auto busy = host.Services().beginBusy();
        host.View().Progress().SetRange(count, 1);
        for (std::int16_t i = 0; i < count; ++i)
            allWritten = WriteOne(host.Controller().GetI2CRegister(i)->Name()) && allWritten;
    }
    if (!allWritten)
        host.Services().prompts.Tell("error writing register to Vexlon");
}

bool VexlonFiles::WriteOne(const std::string& name)
{
    IWizardHost& host = board_.Host();
    const int before = host.Failures();
    host.Controller().WriteI2CRegister(host.Device(), name);
    host.View().Progress().TickProgress(1);
    return host.Failures() == before;
}

}
