#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

void replay(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    file.exceptions(std::ios::badbit);
    const std::string bytes { std::istreambuf_iterator<char>(file), {} };
    // A copy of exactly that size, without the NUL behind a string, so that reading beyond its end is noticed.
    const std::vector<std::uint8_t> input(bytes.begin(), bytes.end());
    LLVMFuzzerTestOneInput(input.data(), input.size());
}

} // namespace

// Runs a fuzzer on every file of the folders named, without looking for new ones.
int main(int argc, char** argv)
{
    LLVMFuzzerInitialize(&argc, &argv);
    int files = 0;
    for (int i = 1; i < argc; ++i) {
        for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
            try {
                replay(entry.path());
                ++files;
            } catch (const std::exception& error) {
                std::fprintf(stderr, "%s: %s\n", entry.path().c_str(), error.what());
                return 1;
            }
        }
    }
    std::printf("%d files replayed\n", files);
    return files > 0 ? 0 : 1;
}
