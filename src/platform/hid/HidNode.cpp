#include "platform/hid/HidNode.h"

#include "base/Text.h"
#include "platform/hid/HidEnumeration.h"
#include "platform/hid/ReportDescriptor.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <fstream>
#include <hidapi.h>
#include <iterator>
#include <limits>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>

namespace tarvex {

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds kRightsLimit{200};
constexpr milliseconds kRightsPause{15};
/// Longer than the system lets another program be stuck in a write.
constexpr milliseconds kLockLimit{6000};
/// About the time of one short transfer.
constexpr std::chrono::microseconds kLockPause{500};
/// Twice what the system keeps for one reader: a board that sends without end must not hold us.
constexpr int kMostWaiting = 128;

Descriptor OpenWhenAllowed(const std::string& path, int& error)
{
    const auto end = steady_clock::now() + kRightsLimit;
    for (;;) {
        Descriptor own(open(path.c_str(), O_RDWR | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
        error = own ? 0 : errno;
        if ((error != EACCES && error != EPERM) || steady_clock::now() >= end)
            return own;
        std::this_thread::sleep_for(kRightsPause);
    }
}

/// The descriptor as the system keeps it; empty when the path is no hidraw node.
Bytes DescriptorOf(const std::string& path)
{
    const std::string name(FileNameOf(path));
    std::ifstream file("/sys/class/hidraw/" + name + "/device/report_descriptor", std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(file), {});
}

}

HidNode::HidNode(const std::string& path, Descriptor own)
    : path_(path), own_(std::move(own)), device_(nullptr, hid_close)
{}

std::unique_ptr<HidNode> HidNode::Open(const std::string& path, int& error)
{
    Descriptor own = OpenWhenAllowed(path, error); // the library does not tell why it cannot open
    if (!own)
        return nullptr;
    std::unique_ptr<HidNode> node(new HidNode(path, std::move(own)));
    error = node->Complete();
    return error == 0 ? std::move(node) : nullptr;
}

/// The last test makes sure that what was opened and read by name between is all of the same device.
int HidNode::Complete()
{
    const Bytes descriptor = DescriptorOf(path_);
    if (descriptor.empty())
        return ENODEV;
    const ReportLayout layout = ReadReportDescriptor(descriptor);
    if (layout.lengths.input == 0 || layout.lengths.output == 0)
        return ENOTSUP;
    lengths_ = layout.lengths;
    idBytes_ = layout.numbered ? 1 : 0;
    errno = 0;
    device_.reset(hid_open_path(path_.c_str()));
    if (!device_)
        return errno != 0 ? errno : ENODEV;
    Identify();
    return IsPresent() ? 0 : ENODEV;
}

void HidNode::Identify()
{
    const auto present = PresentHidInterfaces();
    if (!present)
        return;
    const auto self = std::find_if(present->begin(), present->end(),
                                   [this](const HidInterface& candidate) { return candidate.path == path_; });
    if (self == present->end())
        return;
    attributes_ = self->attributes;
    productString_ = self->productString;
}

bool HidNode::IsPresent() const
{
    struct stat opened {};
    struct stat named {};
    return fstat(own_.Number(), &opened) == 0 && opened.st_nlink > 0 && stat(path_.c_str(), &named) == 0 &&
           opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

bool HidNode::Lock()
{
    const auto isLocked = [this] { return flock(own_.Number(), LOCK_EX | LOCK_NB) == 0; };
    if (isLocked()) // as nearly always, and without a look at the clock
        return true;
    const auto end = steady_clock::now() + kLockLimit;
    while (!isLocked()) {
        const bool isHeld = errno == EWOULDBLOCK;
        if (!isHeld || steady_clock::now() >= end) {
            lastError_ = isHeld ? EBUSY : errno;
            return false;
        }
        std::this_thread::sleep_for(kLockPause);
    }
    return true;
}

void HidNode::Unlock() { flock(own_.Number(), LOCK_UN); }

bool HidNode::DropWaiting()
{
    Bytes waiting(lengths_.input);
    for (int count = 0; count < kMostWaiting; ++count) {
        const int result = ReadReport(waiting.data(), waiting.size(), 0);
        if (result <= 0)
            return result == 0;
    }
    return true;
}

/// A device without report ids gets 0 in the place of the id: that is how the system knows not to send it.
std::size_t HidNode::Send(const Bytes& report)
{
    Bytes sent = report;
    if (idBytes_ == 0 && !sent.empty())
        sent[0] = 0;
    errno = 0;
    const int written = hid_write(device_.get(), sent.data(), sent.size());
    if (written > 0)
        return static_cast<std::size_t>(written);
    lastError_ = errno != 0 ? errno : EIO;
    return 0;
}

/// A device without report ids sends none: 0 stands in its place.
Bytes HidNode::Receive(std::size_t length, milliseconds limit)
{
    const std::size_t before = 1 - idBytes_;
    Bytes report(std::max(length, before));
    const auto longest = milliseconds::rep{std::numeric_limits<int>::max()};
    const auto time = static_cast<int>(std::clamp(limit.count(), milliseconds::rep{0}, longest));
    const int count = ReadReport(report.data() + before, report.size() - before, time);
    if (count == 0)
        lastError_ = ETIMEDOUT;
    if (count <= 0)
        return {};
    report.resize(before + static_cast<std::size_t>(count));
    return report;
}

int HidNode::ReadReport(std::uint8_t* data, std::size_t length, int limit)
{
    errno = 0;
    const int count = hid_read_timeout(device_.get(), data, length, limit);
    if (count < 0)
        lastError_ = errno != 0 ? errno : ENODEV;
    return count;
}

}
