#include "replay/script.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <set>

#include "platform/common/utf8.h"
#include "platform/window.h"
#include "replay/checksum.h"
#include "replay/message_words.h"

namespace replay
{
namespace
{

constexpr std::uint32_t kMaxNumber = std::numeric_limits<std::uint32_t>::max();
constexpr std::uint32_t kMaxWord16 = 65535;
constexpr std::uint32_t kMaxFrameCostMs = 10000;
constexpr std::uint32_t kMaxRefreshRate = 1000;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr Message kQuit{platform::WM_QUIT, 0, 0};

/// The words of one line, taken one after the other, and what is wrong with it. Behind a fault there are no
/// more words.
class Words
{
public:
    explicit Words(std::string_view line) : rest_(line.substr(0, line.find('#'))) { skipBlanks(); }

    bool atEnd() const { return rest_.empty(); }

    /// The first fault; empty while there is none.
    const std::string &fault() const { return fault_; }
    void fail(const std::string &what)
    {
        if (fault_.empty())
            fault_ = what;
        rest_ = {};
    }

    /// The next word. `what` says what is missing at the end of the line.
    std::string_view word(std::string_view what)
    {
        if (atEnd()) {
            fail("missing " + std::string(what));
            return {};
        }
        const std::size_t length = std::min(rest_.find_first_of(" \t"), rest_.size());
        const std::string_view taken = rest_.substr(0, length);
        rest_.remove_prefix(length);
        skipBlanks();
        return taken;
    }

    /// The next word as a number from `min` to `max`.
    std::uint32_t number(std::string_view what, std::uint32_t max, std::uint32_t min = 0)
    {
        const std::string_view digits = word(what);
        const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
        std::uint32_t value = 0;
        const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
        if (!std::all_of(digits.begin(), digits.end(), isDigit))
            fail("'" + std::string(digits) + "' is not a number, " + std::string(what) + " is wanted");
        else if (result.ec != std::errc() || value > max)
            fail(std::string(what) + " " + std::string(digits) + " is over " + std::to_string(max));
        else if (value < min)
            fail(std::string(what) + " " + std::string(digits) + " is under " + std::to_string(min));
        return value;
    }

    /// The next word as a checksum, with all its digits.
    std::uint32_t checksum()
    {
        const std::string_view digits = word("checksum");
        const auto isDigit = [](char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f'); };
        if (digits.size() != kChecksumDigits || !std::all_of(digits.begin(), digits.end(), isDigit))
            fail("'" + std::string(digits) + "' is no checksum of 8 lower-case hex digits");
        std::uint32_t value = 0;
        std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
        return value;
    }

    void end()
    {
        if (!atEnd())
            fail("'" + std::string(rest_.substr(0, rest_.find_first_of(" \t"))) + "' is too much");
    }

private:
    void skipBlanks() { rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t"), rest_.size())); }

    std::string_view rest_;
    std::string fault_;
};

std::uint32_t pointParameter(Words &words)
{
    const std::uint32_t x = words.number("x", kMaxWord16);
    const std::uint32_t y = words.number("y", kMaxWord16);
    return y << 16 | x;
}

Action namedMessage(const MessageWord &named, Words &words)
{
    if (named.isStylus)
        return Message{named.number, 0, pointParameter(words)};
    return Message{named.number, words.number("key code", kMaxWord16), 0};
}

Action anyMessage(Words &words)
{
    const std::uint32_t number = words.number("message number", kMaxNumber);
    const std::uint32_t wParam = words.number("wParam", kMaxNumber);
    return Message{number, wParam, words.number("lParam", kMaxNumber)};
}

Action frameBuffer(Words &words)
{
    const std::string_view state = words.word("'on' or 'off'");
    if (state != "on" && state != "off")
        words.fail("'" + std::string(state) + "' is neither 'on' nor 'off'");
    return FrameBuffer{state == "on"};
}

Action snapshot(Words &words)
{
    const std::string_view name = words.word("the snapshot's name");
    const auto isAllowed = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
               c == '_';
    };
    if (!std::all_of(name.begin(), name.end(), isAllowed))
        words.fail("'" + std::string(name) + "' may hold only letters, digits, '-' and '_'");
    return Snapshot{std::string(name)};
}

std::uint32_t refreshRate(Words &words) { return words.number("refresh rate", kMaxRefreshRate, 1); }

Action frameCost(Words &words) { return FrameCost{words.number("frame cost", kMaxFrameCostMs)}; }
Action refresh(Words &words) { return Refresh{refreshRate(words)}; }
Action check(Words &words) { return Check{words.checksum()}; }
Action background(Words &) { return Foreground{false}; }
Action foreground(Words &) { return Foreground{true}; }
Action quit(Words &) { return kQuit; }

struct Directive {
    std::string_view word;
    Action (*read)(Words &words);
};

constexpr Directive kTimedDirectives[] = {
    {"background", background},    {"foreground", foreground}, {"message", anyMessage},
    {"frame-cost", frameCost},     {"refresh", refresh},       {"check", check},
    {"frame-buffer", frameBuffer}, {"snapshot", snapshot},     {"quit", quit},
};

struct HeaderDirective {
    std::string_view word;
    bool repeatable;
    void (*read)(Words &words, Script &script);
};

constexpr HeaderDirective kHeaderDirectives[] = {
    {"clock", false,
     [](Words &words, Script &script) { script.clock = words.number("tick count", kMaxNumber); }},
    {"frame-cost", false,
     [](Words &words, Script &script) { script.frameCostMs = words.number("frame cost", kMaxFrameCostMs); }},
    {"refresh", false, [](Words &words, Script &script) { script.refreshRate = refreshRate(words); }},
    {"display-error", false,
     [](Words &words, Script &script) { script.displayError = words.number("system error", kMaxNumber); }},
    {"running-copy", false, [](Words &, Script &script) { script.copyRunning = true; }},
    {"window-error", false, [](Words &, Script &script) { script.windowFails = true; }},
    {"hide", true,
     [](Words &words, Script &script) { script.hiddenFiles.emplace_back(words.word("a file name")); }},
};

/// Null, and a fault of the line, for a word that is none.
template <class Directive, std::size_t N>
const Directive *findDirective(const Directive (&table)[N], std::string_view word, Words &words)
{
    for (const Directive &directive : table) {
        if (directive.word == word)
            return &directive;
    }
    words.fail("unknown directive '" + std::string(word) + "'");
    return nullptr;
}

class Parser
{
public:
    explicit Parser(Script &script) : script_(script) {}

    /// @return what is wrong with the line, empty when nothing is.
    std::string readLine(std::string_view line)
    {
        ++line_;
        if (const char *fault = textFault(line))
            return fault;
        Words words(line);
        if (words.atEnd())
            return "";
        const std::string_view first = words.word("a directive");
        if (first == "at")
            readTimed(words);
        else
            readHeader(first, words);
        words.end();
        return words.fault();
    }

    void finish()
    {
        std::vector<TimedAction> &timeline = script_.timeline;
        if (timeline.empty() || !isQuit(timeline.back().action))
            timeline.push_back({timeline.empty() ? 0 : timeline.back().atMs, kQuit, 0});
    }

    /// The line being read, from 1.
    std::size_t line() const { return line_; }

private:
    /// Null for a line that is as text must be.
    static const char *textFault(std::string_view line)
    {
        if (line.find('\r') != std::string_view::npos)
            return "carriage return; lines end in a line feed alone";
        if (line.find(kByteOrderMark) != std::string_view::npos)
            return "byte-order mark; save the script without one";
        return platform::common::isUtf8(line) ? nullptr : "not UTF-8 text";
    }

    void readHeader(std::string_view word, Words &words)
    {
        const HeaderDirective *directive = findDirective(kHeaderDirectives, word, words);
        if (!directive)
            return;
        if (!script_.timeline.empty())
            words.fail("'" + std::string(word) + "' must stand before the timed lines");
        else if (!seenHeaders_.insert(directive->word).second && !directive->repeatable)
            words.fail("'" + std::string(word) + "' stands here a second time");
        else
            directive->read(words, script_);
    }

    void readTimed(Words &words)
    {
        const std::uint32_t atMs = words.number("time", kMaxNumber);
        if (!script_.timeline.empty() && atMs < script_.timeline.back().atMs)
            words.fail("time " + std::to_string(atMs) + " is before the previous line's " +
                       std::to_string(script_.timeline.back().atMs));
        const std::string_view word = words.word("what happens");
        if (const MessageWord *named = findWord(word))
            script_.timeline.push_back({atMs, namedMessage(*named, words), line_});
        else if (const Directive *directive = findDirective(kTimedDirectives, word, words))
            script_.timeline.push_back({atMs, directive->read(words), line_});
    }

    Script &script_;
    std::set<std::string_view> seenHeaders_;
    std::size_t line_ = 0;
};

} // namespace

std::optional<ScriptFault> parseScript(std::string_view text, Script &script)
{
    script.text = text;
    Parser parser(script);
    while (!text.empty()) {
        const std::size_t length = std::min(text.find('\n'), text.size());
        const std::string fault = parser.readLine(text.substr(0, length));
        if (!fault.empty())
            return ScriptFault{parser.line(), fault};
        text.remove_prefix(std::min(length + 1, text.size()));
    }
    parser.finish();
    return std::nullopt;
}

bool isQuit(const Action &action)
{
    const auto *message = std::get_if<Message>(&action);
    return message && message->number == platform::WM_QUIT;
}

} // namespace replay
