/// Stands in for libFuzzer where it is not linked: tries each file of the folders given, once.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "fuzz/fuzzer.h"

namespace
{

void tryFile(const std::filesystem::path &path)
{
    std::ifstream file(path, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
    std::printf("%s\n", path.c_str());
    std::fflush(stdout);
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(bytes.data()), bytes.size());
}

} // namespace

int main(int argumentCount, char **arguments)
{
    int tried = 0;
    for (int i = 1; i < argumentCount; ++i) {
        for (const auto &entry : std::filesystem::directory_iterator(arguments[i])) {
            tryFile(entry.path());
            ++tried;
        }
    }
    return tried > 0 ? 0 : 2;
}

std::size_t LLVMFuzzerMutate(std::uint8_t *, std::size_t size, std::size_t) { return size; }
