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
constexpr std::uint8_t kDataBytes = 63;
constexpr std::size_t kHeader = 6; // the report id, both ids of the register, the length byte
constexpr int kLookPause = 2;      // ms between two looks at what the firmware is told

RegisterAddress AddressOf(const Bytes& report) { return {report[1] | report[2] << 8, report[3] | report[4] << 8}; }

std::size_t DataSize(const Bytes& report)
{
    const std::size_t declared = static_cast<std::size_t>(report[5] >> 5) * (report[5] & 0x1F);
    return std::min(declared, report.size() - kHeader);
}

/// One vendor-defined collection of 63 bytes: report 1 goes to the board, 2 both ways.
constexpr std::uint8_t kReportDescriptor[] = {0x06, 0x00, 0xFF, 0x09, 0x01, 0xA1,        0x01,       0x15, 0x00,
                                              0x26, 0xFF, 0x00, 0x75, 0x08, 0x95,        kDataBytes, 0x85, kWriteReport,
                                              0x09, 0x02, 0x91, 0x02, 0x85, kReadReport, 0x09,       0x02, 0x91,
                                              0x02, 0x09, 0x04, 0x81, 0x02, 0xC0};

void Check(bool good, const std::string& what)
{
    if (!good)
        throw std::system_error(errno, std::generic_category(), what);
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
    WriteAttribute("idVendor", "0x12c5");
    WriteAttribute("idProduct", std::to_string(setup_.productId));
    WriteAttribute("bcdDevice", "0x0102");
    WriteAttribute("strings/0x409/product", "Vexlon " + std::to_string(setup_.socket));
    WriteAttribute("functions/hid.usb0/report_length", std::to_string(kDataBytes + 1));
    WriteAttribute("functions/hid.usb0/report_desc", {std::begin(kReportDescriptor), std::end(kReportDescriptor)});
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
    std::ofstream file(folder_ + "/" + name, std::ios::binary);
    Check((file << value).flush().good(), name);
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
    answer.resize(std::size_t{1} + kDataBytes);
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
    // Without a program that reads, or unplugged meanwhile, nobody misses the answer.
    [[maybe_unused]] const ssize_t written = write(endpoint_, answer.data(), answer.size());
}

}
