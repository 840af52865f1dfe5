#include "tests/game/facts.h"

#include <cstdint>
#include <sstream>
#include <stdexcept>

namespace mygame::tests
{
namespace
{

using Json = nlohmann::json;

// CRC-32 of 240 * 320 pixels of two bytes 255 or 0 each.
constexpr const char *kWhiteCrc = "90bb2232";
constexpr const char *kBlackCrc = "066e64a1";

const Json &frameAt(const std::string &when, const Evidence &evidence)
{
    if (when == "end" && !evidence.frames.empty())
        return evidence.frames.back();
    for (const Json &frame : evidence.frames) {
        const std::uint32_t start = evidence.frames.front()["tick"];
        if (frame["tick"].get<std::uint32_t>() - start >= std::stoul(when))
            return frame;
    }
    throw std::invalid_argument("there is no frame at " + when);
}

Json memberOf(const Json &frame, const std::string &path)
{
    std::istringstream names(path);
    std::string name;
    std::getline(names, name, '.');
    const Json *member = &(frame.contains(name) ? frame : frame["state"]).at(name);
    while (std::getline(names, name, '.'))
        member = &(member->is_array() ? member->at(std::stoul(name)) : member->at(name));
    return *member;
}

Json valueOf(const std::string &text)
{
    if (text == "white" || text == "black")
        return text == "white" ? kWhiteCrc : kBlackCrc;
    const Json value = Json::parse(text, nullptr, false);
    return value.is_discarded() ? Json(text) : value;
}

/// True when the text began with the prefix, which is gone then.
bool skip(std::string &text, const std::string &prefix)
{
    const bool found = text.starts_with(prefix);
    if (found)
        text.erase(0, prefix.size());
    return found;
}

std::string restOf(std::istringstream &words)
{
    std::string rest;
    std::getline(words >> std::ws, rest);
    return rest;
}

std::string checkFrame(const Json &frame, std::istringstream words, const Evidence &evidence)
{
    std::string path;
    words >> path;
    const std::string claim = restOf(words);
    std::string value = claim;
    const bool counts = skip(value, "counts ");
    if (!counts && !skip(value, "is "))
        throw std::invalid_argument("'" + claim + "' is neither 'is' nor 'counts'");
    const bool negated = skip(value, "not ");
    const Json found = memberOf(frame, path);
    const Json expected = skip(value, "as at ") ? memberOf(frameAt(value, evidence), path) : valueOf(value);
    if (((counts ? Json(found.size()) : found) == expected) != negated)
        return "";
    return "frame " + frame["frame"].dump() + ", tick " + frame["tick"].dump() + ": " + path + " is " +
           found.dump() + ", expected " +
           (negated  ? "not "
            : counts ? "a count of "
                     : "") +
           expected.dump();
}

std::string screensOf(const Evidence &evidence)
{
    std::string screens;
    std::string last;
    for (const Json &frame : evidence.frames) {
        const std::string screen = frame["screen"];
        if (screen != last)
            screens += (last.empty() ? "" : " ") + screen;
        last = screen;
    }
    return screens;
}

/// On one line, as facts are.
std::string escaped(const std::string &text)
{
    std::string line;
    for (char c : text)
        line += c == '\n' ? "\\n" : std::string(1, c);
    return line;
}

std::string wholeOf(const std::string &name, const Evidence &evidence)
{
    if (name == "exit")
        return std::to_string(evidence.exit);
    if (name == "log" || name == "errors")
        return escaped(name == "log" ? evidence.log : evidence.errors);
    if (name == "frames")
        return std::to_string(evidence.frames.size());
    if (name == "screens")
        return screensOf(evidence);
    if (name != "sounds")
        throw std::invalid_argument("'" + name + "' is nothing that facts speak of");
    std::size_t sounds = 0;
    for (const Json &frame : evidence.frames)
        sounds += frame["sounds"].size();
    return std::to_string(sounds);
}

std::string check(const std::string &fact, const Evidence &evidence)
{
    std::istringstream words(fact);
    std::string first;
    std::string second;
    words >> first;
    if (first == "always") {
        const std::string rest = restOf(words);
        for (const Json &frame : evidence.frames) {
            if (const std::string fault = checkFrame(frame, std::istringstream(rest), evidence);
                !fault.empty())
                return fault;
        }
        return "";
    }
    words >> second;
    if (first == "at")
        return checkFrame(frameAt(second, evidence), std::move(words), evidence);
    const std::string whole = wholeOf(first, evidence);
    const std::string expected = restOf(words);
    const bool holds = second == "has" ? whole.find(expected) != std::string::npos : whole == expected;
    return holds ? "" : first + " is '" + whole + "', expected '" + expected + "'";
}

} // namespace

std::string checkFact(const std::string &fact, const Evidence &evidence)
{
    try {
        return check(fact, evidence);
    } catch (const std::exception &fault) {
        return fault.what();
    }
}

} // namespace mygame::tests
