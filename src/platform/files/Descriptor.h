#pragma once

#include <string>
#include <string_view>

namespace tarvex {

/// Owns one open file descriptor.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(other.Release()) {}
    Descriptor& operator=(Descriptor&& other) noexcept;
    ~Descriptor();

    explicit operator bool() const { return number_ >= 0; }
    int Number() const { return number_; }
    int Release() noexcept;

private:
    int number_ = -1;
};

/// Turns the error number of the call that just failed into an Error: 53 when something is not there, else 0x80040001
/// with the path and the system's text.
[[noreturn]] void RaiseFromErrno(const std::string& operation, const std::string& path);

/// Opens for reading and raises for anything but a regular file, without waiting at a pipe.
Descriptor OpenRegularFile(const std::string& operation, const std::string& path);

/// One read, repeated when a signal broke it off: the bytes read, 0 at the end of the file, -1 with errno set.
long ReadSome(const Descriptor& file, char* data, std::size_t size);

/// Writes every byte; false with errno set when that fails.
bool WriteAll(const Descriptor& file, std::string_view bytes);

}
