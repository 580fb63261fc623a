#include "platform/files/Descriptor.h"

#include "base/Error.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace tarvex {

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept
{
    std::swap(number_, other.number_);
    return *this;
}

Descriptor::~Descriptor()
{
    if (number_ >= 0)
        close(number_);
}

int Descriptor::Release() noexcept { return std::exchange(number_, -1); }

void RaiseFromErrno(const std::string& operation, const std::string& path)
{
    const int number = errno;
    if (number == ENOENT)
        RaiseRuntime(kErrFileNotFound, operation);
    Raise(ObjectError(1), operation, path + ": " + std::strerror(number));
}

Descriptor OpenRegularFile(const std::string& operation, const std::string& path)
{
    Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status {};
    if (!file || fstat(file.Number(), &status) != 0)
        RaiseFromErrno(operation, path);
    if (!S_ISREG(status.st_mode))
        Raise(ObjectError(1), operation, path + ": Not a regular file");
    return file;
}

long ReadSome(const Descriptor& file, char* data, std::size_t size)
{
    long count = 0;
    do
        count = read(file.Number(), data, size);
    while (count < 0 && errno == EINTR);
    return count;
}

bool WriteAll(const Descriptor& file, std::string_view bytes)
{
    while (!bytes.empty()) {
        const long count = write(file.Number(), bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR)
            return false;
        bytes.remove_prefix(count > 0 ? static_cast<std::size_t>(count) : 0);
    }
    return true;
}

}
