/// Facts that a replay must show. A fact is a line of words; `#` starts a comment.
///
///     at 2900 MEMBER ...              in the first frame that many ms after the first one; `at end`: the
///     last always MEMBER ...               in every frame screens are MAIN_MENU GAME      in this order,
///     each as long as it stays frames are 251, sounds are 3    how many were presented, how many started
///     exit is 0                       the exit status; 0 when no fact tells it
///     log is Init\nError5             the whole log, errors likewise standard error; `has`: a part of it
///
/// A frame's member is given by its path in the trace (`state.` can be left out), and
///
///     is VALUE, is not VALUE
///     is as at 2900                   has the value of that frame; also `is not as at`
///     is white, is black              as the `crc`: of a picture of one colour
///     counts N                        is a list with so many elements
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace mygame::tests
{

/// All that facts speak of.
struct Evidence {
    int exit = 0;
    std::string errors;
    std::string log;
    std::vector<nlohmann::json> frames;
};

/// @return what is wrong, empty when the fact is true.
std::string checkFact(const std::string &fact, const Evidence &evidence);

} // namespace mygame::tests
