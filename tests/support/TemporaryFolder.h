#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace tarvex {

/// A new empty folder that is removed with everything in it.
class TemporaryFolder {
public:
    TemporaryFolder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "tarvex-test-XXXXXX").string();
        path = mkdtemp(pattern.data());
    }
    ~TemporaryFolder()
    {
        std::error_code error;
        std::filesystem::remove_all(path, error);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string File(const std::string& name) const { return path + "/" + name; }

    /// Writes a file and gives its path.
    std::string Write(const std::string& name, const std::string& content) const
    {
        std::ofstream(File(name), std::ios::binary) << content;
        return File(name);
    }

    std::string Read(const std::string& name) const
    {
        std::ifstream file(File(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    std::string path;
};

}
