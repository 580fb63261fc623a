#pragma once

#include "platform/hid/IHidServices.h"

#include <algorithm>
#include <cerrno>
#include <deque>
#include <functional>
#include <map>

namespace tarvex {

/// One board of a test, plugged in or not: answers from its memory, takes writes into it, and fails on demand. An
/// answer that does not come has timed out at once.
struct FakeHidBoard {
    HidInterface known{"/dev/hidraw0", {0x12C5, 0xA100, 0x0102}, "Vexlon"};
    HidReportLengths lengths{64, 64};
    std::map<Bytes, Bytes> memory; ///< by the four address bytes; a register that is not in it reads as zeros
    bool plugged = true;
    int openError = 0;                              ///< errno of every Open
    int sendError = 0;                              ///< errno of every report sent
    std::function<void(std::deque<Bytes>&)> tamper; ///< changes the reports that answer a request, first come first
    std::vector<Bytes> sent;
    int exchangesUnderWay = 0;
};

class FakeHidServices : public IHidServices {
public:
    std::optional<std::vector<HidInterface>> Enumerate() override
    {
        std::vector<HidInterface> found;
        for (const auto& board : boards)
            if (board->plugged)
                found.push_back(board->known);
        return canEnumerate ? std::optional(found) : std::nullopt;
    }

    std::unique_ptr<IHidBoard> Open(const std::string& path) override
    {
        opened.push_back(path);
        const auto named = [&](const auto& board) { return board->plugged && board->known.path == path; };
        const auto found = std::find_if(boards.begin(), boards.end(), named);
        lastError_ = found == boards.end() ? ENOENT : (*found)->openError;
        return lastError_ == 0 ? std::make_unique<Handle>(*found) : nullptr;
    }

    int LastError() const override { return lastError_; }

    std::vector<std::shared_ptr<FakeHidBoard>> boards{std::make_shared<FakeHidBoard>()};
    bool canEnumerate = true;
    std::vector<std::string> opened; ///< every path that was tried

private:
    class Handle : public IHidBoard {
    public:
        explicit Handle(std::shared_ptr<FakeHidBoard> board) : board_(std::move(board)) {}

        std::optional<HidAttributes> Attributes() override { return board_->known.attributes; }
        HidReportLengths ReportLengths() override { return board_->lengths; }
        std::string ProductString() override { return board_->known.productString; }
        bool IsPresent() override { return board_->plugged; }
        int LastError() const override { return lastError_; }
        void EndExchange() override { --board_->exchangesUnderWay; }

        std::size_t Write(const Bytes& report) override
        {
            board_->sent.push_back(report);
            lastError_ = board_->plugged ? board_->sendError : ENODEV;
            if (lastError_ == 0 && report[0] == 1)
                Register(report) = Bytes(report.begin() + 6, report.begin() + 6 + (report[5] & 0x1F));
            return lastError_ == 0 ? report.size() : 0;
        }

        HidExchange Exchange(const Bytes& request, std::size_t answerLength, std::chrono::milliseconds limit) override
        {
            ++board_->exchangesUnderWay;
            if (Write(request) == 0)
                return {};
            Bytes data = Register(request);
            data.resize(request[5] & 0x1F);
            arriving_ = {Bytes(request.begin(), request.begin() + 6)};
            arriving_.front().insert(arriving_.front().end(), data.begin(), data.end());
            arriving_.front().resize(board_->lengths.input);
            if (board_->tamper)
                board_->tamper(arriving_);
            return {request.size(), ReadNext(answerLength, limit)};
        }

        Bytes ReadNext(std::size_t answerLength, std::chrono::milliseconds) override
        {
            lastError_ = board_->plugged ? ETIMEDOUT : ENODEV;
            if (arriving_.empty() || !board_->plugged)
                return {};
            Bytes report = std::move(arriving_.front());
            arriving_.pop_front();
            report.resize(std::min(report.size(), answerLength));
            return report;
        }

    private:
        Bytes& Register(const Bytes& report) { return board_->memory[Bytes(report.begin() + 1, report.begin() + 5)]; }

        std::shared_ptr<FakeHidBoard> board_;
        std::deque<Bytes> arriving_;
        int lastError_ = 0;
    };

    int lastError_ = 0;
};

}
