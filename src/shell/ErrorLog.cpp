#include "shell/ErrorLog.h"

#include "base/Error.h"
#include "base/ExitRequest.h"

#include <exception>

namespace tarvex {

void ErrorLog::LogError(std::string_view description, std::int32_t number, std::string_view source) noexcept
{
    try {
        const auto stream = files_.OpenText(path_, OpenMode::Append);
        if (!stream)
            return;
        // One write, so that the entries of two programs do not mix.
        stream->WriteLine("\n" + std::to_string(number) + " raised from " + std::string(source) + "\n" +
                          std::string(description));
    } catch (...) {
        // A log that cannot be written must not stop the program.
    }
}

void ErrorLog::LogCurrentError() noexcept
{
    if (!std::current_exception())
        return;
    try {
        throw;
    } catch (const Error& error) {
        LogError(error.Description(), error.Number(), error.Source());
    } catch (const std::exception& error) {
        LogError(error.what(), 0, "Tarvex");
    } catch (const ExitRequest&) {
        // The end of the program is no error.
    } catch (...) {
        LogError("Unknown error", 0, "Tarvex");
    }
}

}
