// Runs a fuzz target over files: the arguments are files or directories of them. Fails when there is none.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

std::vector<std::filesystem::path> files_of(const std::filesystem::path& path) {
    if (!std::filesystem::is_directory(path)) return {path};
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(path)) {
        if (entry.is_regular_file()) files.push_back(entry.path());
    }
    return files;
}

}  // namespace

int main(int argc, char** argv) {
    std::size_t inputs = 0;
    for (int i = 1; i < argc; ++i) {
        for (const std::filesystem::path& file : files_of(argv[i])) {
            std::ifstream in(file, std::ios::binary);
            if (!in) {
                std::cerr << file << ": cannot be read\n";
                return 1;
            }
            const std::vector<char> bytes{std::istreambuf_iterator<char>(in), {}};
            std::cout << file.string() << std::endl;  // flushed, so that a crash leaves the name behind
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
            ++inputs;
        }
    }
    std::cout << inputs << " inputs\n";
    return inputs > 0 ? 0 : 1;
}
