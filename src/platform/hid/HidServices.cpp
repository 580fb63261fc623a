#include "platform/hid/HidServices.h"

#include "platform/hid/HidEnumeration.h"
#include "platform/hid/HidNode.h"

#include <hidapi.h>

namespace tarvex {

namespace {

/// A board: a node whose blocking operations run on the thread of the services that opened it.
class HidBoard : public IHidBoard {
public:
    HidBoard(std::unique_ptr<HidNode> node, CallThread& thread) : node_(std::move(node)), thread_(thread) {}

    std::optional<HidAttributes> Attributes() override { return node_->Attributes(); }
    HidReportLengths ReportLengths() override { return node_->ReportLengths(); }
    std::string ProductString() override { return node_->ProductString(); }
    bool IsPresent() override { return node_->IsPresent(); }
    void EndExchange() override { node_->Unlock(); }
    int LastError() const override { return node_->LastError(); }

    std::size_t Write(const Bytes& report) override
    {
        return thread_.Run([&]() -> std::size_t {
            if (!node_->Lock())
                return 0;
            const std::size_t written = node_->Send(report);
            node_->Unlock();
            return written;
        });
    }

    HidExchange Exchange(const Bytes& request, std::size_t answerLength, std::chrono::milliseconds limit) override
    {
        return thread_.Run([&] {
            HidExchange result;
            if (node_->Lock() && node_->DropWaiting())
                result.written = node_->Send(request);
            if (result.written > 0)
                result.answer = node_->Receive(answerLength, limit);
            return result;
        });
    }

    Bytes ReadNext(std::size_t answerLength, std::chrono::milliseconds limit) override
    {
        return thread_.Run([&] { return node_->Receive(answerLength, limit); });
    }

private:
    std::unique_ptr<HidNode> node_;
    CallThread& thread_;
};

}

HidServices::~HidServices() { hid_exit(); }

std::optional<std::vector<HidInterface>> HidServices::Enumerate() { return thread_.Run(PresentHidInterfaces); }

std::unique_ptr<IHidBoard> HidServices::Open(const std::string& path)
{
    int error = 0;
    auto node = thread_.Run([&] { return HidNode::Open(path, error); });
    if (node)
        return std::make_unique<HidBoard>(std::move(node), thread_);
    lastError_ = error;
    return nullptr;
}

}
