#include "usb/Board.h"

#include <algorithm>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <poll.h>
#include <system_error>
#include <unistd.h>

namespace tarvex {

namespace fs = std::filesystem;

namespace {

constexpr std::uint8_t kWriteReport = 1;
constexpr std::uint8_t kReadReport = 2;
constexpr std::size_t kHeader = 6; // the report id, both ids of the register, the length byte
constexpr int kLookPause = 2;      // ms between two looks at what the firmware is told

RegisterAddress AddressOf(const Bytes& report) { return {report[1] | report[2] << 8, report[3] | report[4] << 8}; }

std::size_t DataSize(const Bytes& report)
{
    const std::size_t declared = static_cast<std::size_t>(report[5] >> 5) * (report[5] & 0x1F);
    return std::min(declared, report.size() - kHeader);
}

void Check(bool good, const std::string& what)
{
    if (!good)
        throw std::system_error(errno, std::generic_category(), what);
}

/// One vendor-defined collection of bytes.
Bytes ReportDescriptor(const BoardSetup& setup)
{
    Bytes descriptor = {0x06, 0x00, 0xFF, 0x09, 0x01, 0xA1, 0x01, 0x15, 0x00, 0x26, 0xFF, 0x00, 0x75, 0x08};
    const auto add = [&](bool wanted, const Bytes& items) {
        descriptor.insert(descriptor.end(), items.begin(), wanted ? items.end() : items.begin());
    };
    const Bytes output = {0x95, setup.outputBytes, 0x09, 0x02, 0x91, 0x02};
    add(setup.reportIds, {0x85, kWriteReport});
    add(setup.outputBytes > 0, output);
    add(setup.reportIds, {0x85, kReadReport});
    add(setup.reportIds && setup.outputBytes > 0, output);
    add(setup.inputBytes > 0, {0x95, setup.inputBytes, 0x09, 0x04, 0x81, 0x02});
    add(true, {0xC0});
    return descriptor;
}

}

bool WaitUntil(const std::function<bool()>& condition)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

Board::Board(BoardSetup setup) : setup_(setup), folder_("/config/usb_gadget/board" + std::to_string(setup.socket))
{
    for (const char* part : {"", "/strings/0x409", "/functions/hid.usb0", "/configs/c.1"})
        fs::create_directory(folder_ + part);
    const Bytes descriptor = ReportDescriptor(setup_);
    const int longest = std::max(setup_.outputBytes, setup_.inputBytes) + (setup_.reportIds ? 1 : 0);
    WriteAttribute("idVendor", "0x12c5");
    WriteAttribute("idProduct", std::to_string(setup_.productId));
    WriteAttribute("bcdDevice", "0x0102");
    WriteAttribute("strings/0x409/product", "Vexlon " + std::to_string(setup_.socket));
    WriteAttribute("functions/hid.usb0/report_length", std::to_string(longest));
    WriteAttribute("functions/hid.usb0/report_desc", {descriptor.begin(), descriptor.end()});
    fs::create_directory_symlink(folder_ + "/functions/hid.usb0", folder_ + "/configs/c.1/hid.usb0");
}

Board::~Board()
{
    if (plugged_)
        Unplug();
    for (const char* part : {"/configs/c.1/hid.usb0", "/configs/c.1", "/functions/hid.usb0", "/strings/0x409", ""})
        fs::remove(folder_ + part);
}

void Board::WriteAttribute(const std::string& name, const std::string& value) const
{
    const int file = open((folder_ + "/" + name).c_str(), O_WRONLY | O_CLOEXEC);
    const ssize_t written = write(file, value.data(), value.size());
    close(file);
    Check(written == static_cast<ssize_t>(value.size()), name);
}

void Board::Plug(bool waits)
{
    WriteAttribute("UDC", "dummy_udc." + std::to_string(setup_.socket));
    std::string numbers;
    std::ifstream(folder_ + "/functions/hid.usb0/dev") >> numbers;
    const std::string node = "/dev/hidg" + numbers.substr(numbers.find(':') + 1);
    endpoint_ = open(node.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
    Check(endpoint_ >= 0, node);
    plugged_ = true;
    firmware_ = std::thread(&Board::Serve, this);
    Check(!waits || WaitUntil([this] { return !Node().empty(); }), "No node for the board");
}

void Board::Unplug()
{
    WriteAttribute("UDC", "\n");
    plugged_ = false;
    firmware_.join();
    close(endpoint_);
    Check(WaitUntil([this] { return Node().empty(); }), "The board's node stays");
}

std::string Board::Node() const
{
    char id[48];
    std::snprintf(id, sizeof id, "HID_ID=0003:000012C5:%08X", unsigned{setup_.productId});
    for (const auto& entry : fs::directory_iterator("/sys/class/hidraw")) {
        std::ifstream event(entry.path() / "device/uevent");
        const std::string node = "/dev/" + entry.path().filename().string();
        for (std::string line; std::getline(event, line);)
            if (line == id && fs::exists(node))
                return node;
    }
    return {};
}

void Board::Break(BoardFaults faults)
{
    const std::lock_guard lock(mutex_);
    faults_ = std::move(faults);
}

void Board::Set(RegisterAddress address, Bytes value)
{
    const std::lock_guard lock(mutex_);
    registers_[address] = std::move(value);
}

Bytes Board::Get(RegisterAddress address)
{
    const std::lock_guard lock(mutex_);
    return registers_[address];
}

std::vector<Bytes> Board::TakeReceived()
{
    const std::lock_guard lock(mutex_);
    return std::exchange(received_, {});
}

std::size_t Board::ReceivedCount()
{
    const std::lock_guard lock(mutex_);
    return received_.size();
}

void Board::ReleaseAnswer()
{
    // A second reader of the node shows when the answer has arrived.
    pollfd node{open(Node().c_str(), O_RDONLY | O_CLOEXEC), POLLIN, 0};
    {
        const std::lock_guard lock(mutex_);
        Send(std::exchange(held_, {}));
    }
    Check(poll(&node, 1, 5000) == 1, "The held answer did not arrive");
    close(node.fd);
}

void Board::Serve()
{
    while (plugged_) {
        pollfd ready{endpoint_, POLLIN, 0};
        poll(&ready, 1, kLookPause);
        std::this_thread::sleep_for(std::chrono::milliseconds(TakeReport()));
    }
}

/// Returns for how many milliseconds the report keeps the firmware busy.
int Board::TakeReport()
{
    const std::lock_guard lock(mutex_);
    Bytes report(256);
    const ssize_t length = faults_.takesNothing ? 0 : read(endpoint_, report.data(), report.size());
    if (length <= 0)
        return 0;
    report.resize(static_cast<std::size_t>(length));
    received_.push_back(report);
    if (!setup_.reportIds)
        report.insert(report.begin(), kReadReport);
    if (report.size() > kHeader)
        Handle(report);
    return faults_.slowness;
}

void Board::Handle(const Bytes& report)
{
    const auto data = report.begin() + kHeader;
    if (report[0] == kReadReport)
        Answer(report);
    else if (!faults_.readOnly.contains(AddressOf(report)))
        registers_[AddressOf(report)] = Bytes(data, data + static_cast<std::ptrdiff_t>(DataSize(report)));
}

void Board::Answer(const Bytes& request)
{
    if (faults_.unanswered > 0) {
        --faults_.unanswered;
        return;
    }
    Bytes answer(request.begin(), request.begin() + kHeader);
    const Bytes& value = registers_[AddressOf(request)];
    answer.insert(answer.end(), value.begin(), value.end());
    answer.resize(std::size_t{1} + setup_.inputBytes);
    if (faults_.lengthByte >= 0)
        answer[5] = static_cast<std::uint8_t>(faults_.lengthByte);
    for (; faults_.wrongAnswers > 0; --faults_.wrongAnswers) {
        Bytes wrong = answer;
        wrong[3] ^= 0xFF;
        Send(wrong);
    }
    if (std::exchange(faults_.holdAnswer, false))
        held_ = answer;
    else
        Send(answer);
}

void Board::Send(const Bytes& answer) const
{
    pollfd ready{endpoint_, POLLOUT, 0};
    poll(&ready, 1, 1000);
    const std::size_t first = setup_.reportIds ? 0 : 1;
    // Without a program that reads, or unplugged meanwhile, nobody misses the answer.
    [[maybe_unused]] const ssize_t written = write(endpoint_, answer.data() + first, answer.size() - first);
}

}
