#include "platform/sdl/linux/graphics_probe.h"

#include <cstdint>
#include <glob.h>
#include <memory>
#include <string_view>
#include <unistd.h>

#include <SDL_video.h>

namespace platform
{
namespace
{

/// What OpenGL is called where the main processor or a virtual machine's host emulates it.
constexpr std::string_view kEmulated[] = {"llvmpipe", "softpipe", "swrast", "Software Rasterizer", "SVGA3D"};

constexpr std::uint32_t kRendererName = 0x1F01; ///< GL_RENDERER

bool mayUseRenderNode()
{
    glob_t nodes{};
    bool found = false;
    if (glob("/dev/dri/renderD*", 0, nullptr, &nodes) == 0) {
        for (std::size_t i = 0; i < nodes.gl_pathc; ++i)
            found = found || access(nodes.gl_pathv[i], R_OK | W_OK) == 0;
    }
    globfree(&nodes);
    return found;
}

bool isEmulated(std::string_view renderer)
{
    for (const std::string_view name : kEmulated) {
        if (renderer.find(name) != std::string_view::npos)
            return true;
    }
    return false;
}

/// The name of the current context's renderer; empty when it cannot be had.
std::string_view rendererName()
{
    using GetString = const char *(*)(std::uint32_t);
    const auto getString = reinterpret_cast<GetString>(SDL_GL_GetProcAddress("glGetString"));
    const char *name = getString ? getString(kRendererName) : nullptr;
    return name ? name : "";
}

bool offersRealOpenGl(SDL_Window *window)
{
    SDL_GLContext context = SDL_GL_CreateContext(window);
    if (!context)
        return false;
    const std::string_view name = rendererName();
    const bool real = !name.empty() && !isEmulated(name);
    SDL_GL_DeleteContext(context);
    return real;
}

} // namespace

bool hasGraphicsProcessor()
{
    // Asked first, so that the emulation, which takes long to load and much memory, never is.
    if (!mayUseRenderNode())
        return false;
    using Window = std::unique_ptr<SDL_Window, decltype(&SDL_DestroyWindow)>;
    const Window window(SDL_CreateWindow("", 0, 0, 1, 1, SDL_WINDOW_HIDDEN | SDL_WINDOW_OPENGL),
                        SDL_DestroyWindow);
    return window && offersRealOpenGl(window.get());
}

} // namespace platform
