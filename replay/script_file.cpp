#include "replay/script_file.h"

#include <cstdio>
#include <memory>

namespace replay
{
namespace
{

struct CloseFile {
    void operator()(std::FILE *file) const { std::fclose(file); }
};

/// @return false when the file cannot be read to its end, as a folder never can.
bool readFile(const std::string &path, std::string &text)
{
    const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), "rb"));
    char chunk[4096];
    std::size_t size = 0;
    while (file && (size = std::fread(chunk, 1, sizeof chunk, file.get())) > 0)
        text.append(chunk, size);
    return file && !std::ferror(file.get());
}

} // namespace

std::string loadScript(const std::string &program, const std::string &path, Script &script)
{
    std::string text;
    if (!readFile(path, text))
        return program + ": cannot read the script '" + path + "'";
    const auto fault = parseScript(text, script);
    return fault ? path + ':' + std::to_string(fault->line) + ": " + fault->what : "";
}

} // namespace replay
