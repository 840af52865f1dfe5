#pragma once

#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace mygame::tests
{

/// All bytes of a file, none when it is missing.
inline std::string readFile(const std::string &path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline void writeFile(const std::string &path, std::string_view bytes)
{
    std::ofstream(path, std::ios::binary) << bytes;
}

} // namespace mygame::tests
