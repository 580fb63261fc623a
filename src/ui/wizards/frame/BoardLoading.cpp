#include "ui/wizards/frame/BoardLoading.h"

#include "base/Error.h"
#include "config/IProgress.h"
#include "config/TarvexData.h"
#include "model/RegisterObject.h"
#include "platform/xml/XmlFiles.h"
#include "shell/Document.h"
#include "ui/wizards/frame/RegisterWrite.h"
#include "ui/wizards/frame/TransferStep.h"

#include <utility>

namespace tarvex {

namespace {

constexpr const char* kProbed = "DE_TOP";
constexpr const char* kSource = "Wizard::OpenFile";

}

std::int32_t ProbeValue(std::int32_t value, std::int32_t maximum)
{
    return value >= maximum - 1 ? value - 1 : value + 1;
}

BoardLoading::BoardLoading(IWizardHost& host, std::string target, std::int16_t aspi)
    : host_(host), target_(std::move(target)), aspi_(aspi)
{}

bool BoardLoading::Load(const std::string& path)
{
    if (!IsOfThisBoard(path) || !host_.EnsureLink())
        return false;
    const std::int32_t before = Probed().value();
    if (!IsPresetWritable()) {
        Restore(before);
        host_.Services().prompts.Tell(
            "You must select one of the writable presets (0-2) on the rotary encoder to apply the file settings");
        return false;
    }
    const auto progress = host_.BeginProgress();
    if (!host_.Controller().InitDeviceFromFile(path)) {
        Restore(before);
        host_.Services().prompts.Tell("Unable to open file " + path + ". See TarvexError.log for details");
        return false;
    }
    return WriteAll();
}

/// The registers of another board would be written to whatever stands at their addresses in this one.
bool BoardLoading::IsOfThisBoard(const std::string& path)
{
    const WizardServices& services = host_.Services();
    const std::string device = host_.Controller().deviceName();
    XmlDocument file;
    const bool isReadable = LoadXmlFile(services.files, path, file);
    if (isReadable && host_.TheDocument().initFile()->CheckForProduct(path, device))
        return true;
    services.errorLog.LogError(path + (isReadable ? " holds no settings of " + device : ": " + file.LastErrorText()),
                               ObjectError(6), kSource);
    services.prompts.Tell("Unable to open file " + path + ". See TarvexError.log for details");
    return false;
}

bool BoardLoading::IsPresetWritable()
{
    RegisterObject& probed = Probed();
    const std::int32_t before = probed.value();
    const std::int32_t probe = ProbeValue(before, probed.MaxValue());
    try {
        return WriteProbed(probe) && ReadProbed() && probed.value() == probe;
    } catch (const Error&) { // the board may have taken the probe all the same
        RestoreQuietly(before);
        throw;
    }
}

void BoardLoading::RestoreQuietly(std::int32_t value)
{
    try {
        Restore(value);
    } catch (const Error&) {
        host_.Services().errorLog.LogCurrentError();
    }
}

void BoardLoading::Restore(std::int32_t value) { WriteProbed(value); }

bool BoardLoading::WriteProbed(std::int32_t value)
{
    return host_.Write(kSource, kProbed, [&] { WriteRegister(host_, Probed(), value, aspi_); });
}

bool BoardLoading::ReadProbed()
{
    return host_.Read(kSource, kProbed, [&] { Probed().ReadValue(host_.Device(), aspi_); });
}

/// False when the link is lost.
bool BoardLoading::WriteAll()
{
    const std::int16_t count = host_.Controller().GetI2CRegisterCount();
    IProgress& progress = host_.View().Progress();
    progress.SetRange(count, 1);
    for (std::int16_t i = 0; i < count; ++i) {
        const std::string name = host_.Controller().GetI2CRegister(i)->Name();
        const TransferStep step = TryStep(host_, [&] { return WriteOne(name); });
        if (step == TransferStep::LinkLost)
            return false;
        if (step == TransferStep::Failed)
            host_.Services().prompts.Tell("error writing register to " + target_);
        progress.TickProgress(1);
    }
    return true;
}

bool BoardLoading::WriteOne(const std::string& name)
{
    return host_.Write(kSource, name, [&] { host_.Controller().WriteI2CRegister(host_.Device(), name, aspi_); });
}

RegisterObject& BoardLoading::Probed() const { return *host_.Controller().GetI2CRegisterByName(kProbed); }

}
