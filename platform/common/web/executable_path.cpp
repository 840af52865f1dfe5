#include "platform/common/executable_path.h"

#include <cstdlib>
#include <emscripten.h>
#include <memory>

namespace platform::common
{
namespace
{

// clang-format off
/// Under node the script, in a page the place where its files are put. To be freed.
EM_JS(char *, newScriptPath, (), {
    const path = typeof process === 'object' ? process.argv[1].replaceAll('\\\\', '/') : '/mygame';
    const bytes = lengthBytesUTF8(path) + 1;
    const copy = _malloc(bytes);
    stringToUTF8(path, copy, bytes);
    return copy;
});
// clang-format on

struct Free {
    void operator()(char *text) const { std::free(text); }
};

} // namespace

std::string executablePath() { return std::unique_ptr<char, Free>(newScriptPath()).get(); }

} // namespace platform::common
