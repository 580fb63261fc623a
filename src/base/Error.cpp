#include "base/Error.h"

#include <utility>

namespace tarvex {

namespace {

const char* RuntimeDescription(std::int32_t number)
{
    switch (number) {
    case kErrInvalidCall:
        return "Invalid procedure call or argument";
    case kErrOverflow:
        return "Overflow";
    case kErrSubscript:
        return "Subscript out of range";
    case kErrValueOutOfRange:
        return "Value out of range";
    case kErrTypeMismatch:
        return "Type mismatch";
    case kErrFileNotFound:
        return "File not found";
    default:
        return "Application-defined or object-defined error";
    }
}

}

Error::Error(std::int32_t number, std::string source, std::string description)
    : number_(number), source_(std::move(source)), description_(std::move(description))
{}

void Raise(std::int32_t number, std::string source, std::string description)
{
    throw Error(number, std::move(source), std::move(description));
}

void RaiseRuntime(std::int32_t number, std::string source)
{
    Raise(number, std::move(source), RuntimeDescription(number));
}

}
