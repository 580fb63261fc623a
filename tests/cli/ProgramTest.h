#pragma once

#include "support/TemporaryFolder.h"
#include "support/driver/ProgramDriver.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <vector>

namespace tarvex {

/// Runs the built program with a user's home of its own for each test.
class ProgramTest : public ::testing::Test {
protected:
    /// The program where it was built, beside everything that it needs.
    ProgramStart With(std::vector<std::string> switches) const
    {
        return {TARVEX_PROGRAM, std::move(switches), folder.path, {}, {}};
    }

    /// A copy of the program in a folder of its own, with this init file beside it, or none.
    ProgramStart Copied(std::vector<std::string> switches, const std::string& initFile = {}) const
    {
        const std::filesystem::path place = folder.File("program");
        std::filesystem::create_directory(place);
        std::filesystem::copy_file(TARVEX_PROGRAM, place / "tarvex");
        if (!initFile.empty())
            folder.Write("program/Tarvex.xml", initFile);
        return {place / "tarvex", std::move(switches), folder.path, {}, {}};
    }

    /// How many files the program has in the temporary folder.
    std::ptrdiff_t WorkingCopies() const
    {
        const std::filesystem::directory_iterator files(folder.File("tmp"));
        return std::distance(begin(files), end(files));
    }

    TemporaryFolder folder;
};

}
