#pragma once

#include "comm/SerialZorbus.h"

#include "base/ProgramState.h"
#include "base/Text.h"
#include "comm/api/IPacketLog.h"
#include "platform/files/PosixFileSystem.h"
#include "platform/zorbus/SimulatedNorvaneSystem.h"
#include "support/FakeErrorLog.h"
#include "support/FakeFileSystem.h"
#include "support/FakeWait.h"
#include "support/ScriptedPrompts.h"

#include <map>

namespace tarvex {

using Lines = std::vector<std::string>;

inline const std::string kRackA = "Kestra Rack A (0x1A2B)";
inline const std::string kShipped = PosixFileSystem().ReadWholeFile(TARVEX_SHARE "/ZorbusNetwork.xml", 100'000);

/// The surroundings of a link, which all write into the library's journal, so that one list tells what came when.
class Surroundings : public FakeWait, public ScriptedPrompts, public IPacketLog {
public:
    struct Query : IQueryWindow {
        explicit Query(Surroundings& world) : world_(world) { world_.Note("query"); }
        ~Query() override { world_.Note("query over"); }
        bool Cancelled() const override { return false; }
        Surroundings& world_;
    };

    void Note(const std::string& line) { files.files["journal"] += line + "\n"; }
    Lines Take()
    {
        Lines lines = Split(std::exchange(files.files["journal"], ""), "\n");
        lines.pop_back();
        return lines;
    }

    void Pause(std::chrono::milliseconds time) override { Note("pause " + std::to_string(time.count())); }
    std::optional<std::size_t> BrowseForDevice(const std::vector<std::string>& shown) override
    {
        entries = shown;
        return chosen;
    }
    std::unique_ptr<IQueryWindow> ShowQueryProgress() override { return std::make_unique<Query>(*this); }
    bool IsPacketLogging() const noexcept override { return true; }
    void LogPacket(PacketDirection, const Bytes&, std::size_t, int) noexcept override {}
    void LogPacketError(PacketDirection, std::string_view) noexcept override {}
    void LogText(std::string_view line) noexcept override { Note(std::string(line)); }

    FakeFileSystem files;
    FakeErrorLog log;
    Lines entries;
    std::optional<std::size_t> chosen;
    ProgramState state;
    ZoneRest rest;
};

class SerialZorbusTest : public testing::Test {
protected:
    void Start(const std::string& faults = {}, std::int16_t port = 1)
    {
        events_.clear();
        link_.reset();
        world_.rest = {};
        const std::size_t root = network_.find("<ZorbusNetwork");
        const std::size_t inside = network_.find('>', root) + 1;
        world_.files.files["net"] = "<ZorbusNetwork waitFactor='0'>" + faults + network_.substr(inside);
        library_ = std::make_shared<SimulatedNorvaneSystem>(
            SimulatedNetworkFiles{"net", true, "flash", "journal"},
            SimulatedNorvaneSystem::Services{&world_.files, &world_, &world_.log});
        MakeLink({kSerialPortKind, 9600, "", true, port, 0});
        world_.Take();
    }

    void MakeLink(const CommSettings& settings)
    {
        link_ = std::make_unique<SerialZorbus>(SerialZorbusServices{[this] { return library_; }, world_.state, world_,
                                                                    world_.log, world_, world_, world_.rest},
                                               settings);
        const auto note = [this](auto& event, const char* name) {
            events_.push_back(event.Subscribe([this, name](auto...) {
                world_.Note(name);
                ++heard_[name];
            }));
        };
        heard_.clear();
        note(link_->ReadSuccess, "ReadSuccess");
        note(link_->ReadFailure, "ReadFailure");
        note(link_->WriteSuccess, "WriteSuccess");
        note(link_->WriteFailure, "WriteFailure");
        note(link_->Connected, "Connected");
        note(link_->Disconnected, "Disconnected");
    }

    std::int16_t Read(std::int16_t aspi, Bytes& bytes, std::int16_t wanted = 1)
    {
        bytes = link_->ReadFrom(0xC4, 0x11, wanted, aspi);
        return wanted;
    }

    Surroundings world_;
    std::string network_ = kShipped;
    std::shared_ptr<SimulatedNorvaneSystem> library_;
    std::unique_ptr<SerialZorbus> link_;
    std::vector<Subscription> events_;
    std::map<std::string, int> heard_; ///< events by name
};

}
