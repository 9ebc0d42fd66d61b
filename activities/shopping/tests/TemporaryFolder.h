#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace numbrela::testing {

// A folder of a test's own, gone with all that is in it when the test ends.
class TemporaryFolder {
public:
    TemporaryFolder()
    {
        std::random_device chance;
        do {
            path_ = std::filesystem::canonical(std::filesystem::temp_directory_path())
                / ("numbrela-" + std::to_string(chance()));
        } while (!std::filesystem::create_directory(path_));
    }
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ignored);
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }
    std::filesystem::path operator/(const char* name) const { return path_ / name; }

    // The names of what is in it, in their order.
    std::vector<std::string> Names() const
    {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(path_)) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }

private:
    std::filesystem::path path_;
};

inline std::string ReadBytes(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path;
    return { std::istreambuf_iterator<char>(file), {} };
}

inline void WriteBytes(const std::filesystem::path& path, const std::string& bytes)
{
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    EXPECT_TRUE(file.good()) << path;
}

} // namespace numbrela::testing
