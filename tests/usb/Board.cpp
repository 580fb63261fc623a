#include "usb/Board.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <poll.h>
#include <stdexcept>
#include <sys/eventfd.h>
#include <unistd.h>

namespace tarvex {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kLongestReport = 256;
constexpr std::uint8_t kWriteReport = 1;
constexpr std::uint8_t kReadReport = 2;
constexpr std::size_t kHeader = 6; // the report id, both ids of the register, the length byte

std::uint16_t WordAt(const Bytes& report, std::size_t index)
{
    return static_cast<std::uint16_t>(report[index] | report[index + 1] << 8);
}

RegisterAddress AddressOf(const Bytes& report) { return {WordAt(report, 1), WordAt(report, 3)}; }

std::size_t DataSize(const Bytes& report)
{
    const std::size_t declared = static_cast<std::size_t>(report[5] >> 5) * (report[5] & 0x1F);
    return std::min(declared, report.size() - kHeader);
}

/// One vendor-defined collection.
Bytes ReportDescriptor(const BoardSetup& setup)
{
    Bytes descriptor = {0x06, 0x00, 0xFF, 0x09, 0x01, 0xA1, 0x01, 0x15, 0x00, 0x26, 0xFF, 0x00, 0x75, 0x08};
    const auto append = [&](const Bytes& items) { descriptor.insert(descriptor.end(), items.begin(), items.end()); };
    const Bytes output = {0x95, setup.outputBytes, 0x09, 0x02, 0x91, 0x02};
    if (setup.reportIds)
        append({0x85, kWriteReport});
    if (setup.outputBytes > 0)
        append(output);
    if (setup.reportIds)
        append({0x85, kReadReport});
    if (setup.reportIds && setup.outputBytes > 0)
        append(output);
    if (setup.inputBytes > 0)
        append({0x95, setup.inputBytes, 0x09, 0x04, 0x81, 0x02});
    append({0xC0});
    return descriptor;
}

[[noreturn]] void Fail(const std::string& what) { throw std::runtime_error(what + ": " + std::strerror(errno)); }

}

bool WaitUntil(const std::function<bool()>& condition, std::chrono::milliseconds limit)
{
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

Board::Board(BoardSetup setup)
    : setup_(std::move(setup)), folder_("/config/usb_gadget/board" + std::to_string(setup_.socket)),
      wake_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
    for (const char* part : {"", "/strings/0x409", "/functions/hid.usb0", "/configs/c.1"})
        fs::create_directory(folder_ + part);
    WriteAttribute("idVendor", "0x12c5");
    WriteAttribute("idProduct", std::to_string(setup_.productId));
    WriteAttribute("bcdDevice", "0x0102");
    WriteAttribute("strings/0x409/manufacturer", "Tarvex");
    WriteAttribute("strings/0x409/product", setup_.productName);
    WriteAttribute("strings/0x409/serialnumber", std::to_string(setup_.socket));
    WriteAttribute("functions/hid.usb0/protocol", "0");
    WriteAttribute("functions/hid.usb0/subclass", "0");
    const int longest = std::max(setup_.outputBytes, setup_.inputBytes) + (setup_.reportIds ? 1 : 0);
    WriteAttribute("functions/hid.usb0/report_length", std::to_string(longest));
    const Bytes descriptor = ReportDescriptor(setup_);
    WriteAttribute("functions/hid.usb0/report_desc", {descriptor.begin(), descriptor.end()});
    fs::create_directory_symlink(folder_ + "/functions/hid.usb0", folder_ + "/configs/c.1/hid.usb0");
}

Board::~Board()
{
    if (firmware_.joinable())
        Unplug();
    for (const char* part : {"/configs/c.1/hid.usb0", "/configs/c.1", "/functions/hid.usb0", "/strings/0x409", ""}) {
        std::error_code ignored;
        fs::remove(folder_ + part, ignored);
    }
    close(wake_);
}

void Board::WriteAttribute(const std::string& name, const std::string& value) const
{
    const std::string path = folder_ + "/" + name;
    const int file = open(path.c_str(), O_WRONLY | O_CLOEXEC);
    const ssize_t written = write(file, value.data(), value.size());
    close(file);
    if (written != static_cast<ssize_t>(value.size()))
        Fail(path);
}

void Board::Plug(bool waits)
{
    WriteAttribute("UDC", "dummy_udc." + std::to_string(setup_.socket));
    std::string numbers;
    std::ifstream(folder_ + "/functions/hid.usb0/dev") >> numbers;
    const std::string node = "/dev/hidg" + numbers.substr(numbers.find(':') + 1);
    endpoint_ = open(node.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
    if (endpoint_ < 0)
        Fail(node);
    stopping_ = false;
    firmware_ = std::thread(&Board::Serve, this);
    if (waits && !WaitUntil([this] { return !Node().empty(); }))
        Fail("No node for the board");
}

void Board::Unplug()
{
    WriteAttribute("UDC", "\n");
    {
        const std::lock_guard lock(mutex_);
        stopping_ = true;
    }
    eventfd_write(wake_, 1);
    firmware_.join();
    close(endpoint_);
    if (!WaitUntil([this] { return Node().empty(); }))
        Fail("The board's node stays");
}

std::string Board::Node() const
{
    char id[48];
    std::snprintf(id, sizeof id, "HID_ID=0003:000012C5:%08X", static_cast<unsigned>(setup_.productId));
    std::error_code ignored;
    for (const auto& entry : fs::directory_iterator("/sys/class/hidraw", ignored)) {
        std::ifstream event(entry.path() / "device/uevent");
        const std::string node = "/dev/" + entry.path().filename().string();
        for (std::string line; std::getline(event, line);)
            if (line == id && fs::exists(node, ignored))
                return node;
    }
    return {};
}

void Board::Break(BoardFaults faults)
{
    {
        const std::lock_guard lock(mutex_);
        faults_ = std::move(faults);
    }
    eventfd_write(wake_, 1);
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
    const int node = open(Node().c_str(), O_RDONLY | O_CLOEXEC);
    {
        const std::lock_guard lock(mutex_);
        Send(std::exchange(held_, {}));
    }
    pollfd arrived{node, POLLIN, 0};
    const int ready = poll(&arrived, 1, 5000);
    close(node);
    if (ready != 1)
        Fail("The held answer did not arrive");
}

/// False when the firmware ends.
bool Board::MayTake(bool& takes)
{
    const std::lock_guard lock(mutex_);
    takes = !faults_.takesNothing;
    return !stopping_;
}

void Board::Serve()
{
    for (bool takes = true; MayTake(takes);) {
        pollfd ready[] = {{wake_, POLLIN, 0}, {takes ? endpoint_ : -1, POLLIN, 0}};
        poll(ready, 2, -1);
        eventfd_t count = 0;
        eventfd_read(wake_, &count);
        Bytes report(kLongestReport);
        const ssize_t length = ready[1].revents != 0 ? read(endpoint_, report.data(), report.size()) : 0;
        if (length <= 0)
            continue;
        report.resize(static_cast<std::size_t>(length));
        const std::lock_guard lock(mutex_);
        received_.push_back(report);
        if (!setup_.reportIds)
            report.insert(report.begin(), kReadReport);
        if (report.size() > kHeader)
            Handle(report);
    }
}

void Board::Handle(const Bytes& report)
{
    if (report[0] == kWriteReport && !faults_.readOnly.contains(AddressOf(report))) {
        const auto data = report.begin() + kHeader;
        registers_[AddressOf(report)] = Bytes(data, data + static_cast<std::ptrdiff_t>(DataSize(report)));
    }
    if (report[0] == kReadReport)
        Answer(report);
}

void Board::Answer(const Bytes& request)
{
    if (faults_.unanswered > 0) {
        --faults_.unanswered;
        return;
    }
    Bytes answer(request.begin(), request.begin() + kHeader);
    answer.resize(std::size_t{1} + setup_.inputBytes);
    const Bytes& value = registers_[AddressOf(request)];
    std::copy_n(value.begin(), std::min({value.size(), DataSize(request), answer.size() - kHeader}),
                answer.begin() + kHeader);
    if (faults_.lengthByte >= 0)
        answer[5] = static_cast<std::uint8_t>(faults_.lengthByte);
    for (; faults_.wrongAnswers > 0; --faults_.wrongAnswers) {
        Bytes wrong = answer;
        wrong[3] ^= 0xFF;
        Send(wrong);
    }
    if (faults_.holdAnswer) {
        faults_.holdAnswer = false;
        held_ = answer;
        return;
    }
    Send(answer);
}

void Board::Send(const Bytes& answer) const
{
    pollfd ready{endpoint_, POLLOUT, 0};
    poll(&ready, 1, 1000);
    const std::size_t skipped = setup_.reportIds ? 0 : 1;
    // Without a program that reads, or unplugged meanwhile, nobody misses the answer.
    [[maybe_unused]] const ssize_t written = write(endpoint_, answer.data() + skipped, answer.size() - skipped);
}

}
