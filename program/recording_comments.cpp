#include "program/recording_comments.h"

#include <ctime>

namespace program
{

std::string recordingComments()
{
    const std::time_t now = std::time(nullptr);
    char date[32];
    std::strftime(date, sizeof date, "%Y-%m-%d %H:%M:%S", std::localtime(&now));
    return "# MyGame recording\n# MyGame " MYGAME_VERSION ", " MYGAME_HOST ", " + std::string(date) + '\n';
}

} // namespace program
