// Runs the files of the given folders once each through a fuzz target's entry, without libFuzzer.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

std::string bytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// The number of files run. The name is printed first, so that the last one printed is the one that failed.
int runFolder(const char* folder) {
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        std::puts(entry.path().filename().c_str());
        std::fflush(stdout);
        const std::string bytes = bytesOf(entry.path());
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
        ++files;
    }
    return files;
}

} // namespace

// An empty folder is a failure: it tests nothing.
int main(int count, char** arguments) {
    for (int index = 1; index < count; ++index) {
        const int files = runFolder(arguments[index]);
        std::printf("%s: %d inputs\n", arguments[index], files);
        if (files == 0) return 1;
    }
    return count > 1 ? 0 : 2;
}
