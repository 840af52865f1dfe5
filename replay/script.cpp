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

/// What is wrong with the line being read.
struct Fault {
    std::string what;
};

/// The words of one line, taken one after the other.
class Words
{
public:
    explicit Words(std::string_view line) : rest_(line.substr(0, line.find('#'))) { skipBlanks(); }

    bool atEnd() const { return rest_.empty(); }

    /// The next word. `what` says what is missing at the end of the line.
    std::string_view word(std::string_view what)
    {
        if (atEnd())
            throw Fault{"missing " + std::string(what)};
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
        if (!std::all_of(digits.begin(), digits.end(), isDigit))
            throw Fault{"'" + std::string(digits) + "' is not a number, " + std::string(what) + " is wanted"};
        std::uint32_t value = 0;
        const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
        if (result.ec != std::errc() || value > max)
            throw Fault{std::string(what) + " " + std::string(digits) + " is over " + std::to_string(max)};
        if (value < min)
            throw Fault{std::string(what) + " " + std::string(digits) + " is under " + std::to_string(min)};
        return value;
    }

    /// The next word as a checksum, with all its digits.
    std::uint32_t checksum()
    {
        const std::string_view digits = word("checksum");
        const auto isDigit = [](char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f'); };
        if (digits.size() != kChecksumDigits || !std::all_of(digits.begin(), digits.end(), isDigit))
            throw Fault{"'" + std::string(digits) + "' is no checksum of 8 lower-case hex digits"};
        std::uint32_t value = 0;
        std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
        return value;
    }

    void end() const
    {
        if (!atEnd())
            throw Fault{"'" + std::string(rest_.substr(0, rest_.find_first_of(" \t"))) + "' is too much"};
    }

private:
    void skipBlanks() { rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t"), rest_.size())); }

    std::string_view rest_;
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
        throw Fault{"'" + std::string(state) + "' is neither 'on' nor 'off'"};
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
        throw Fault{"'" + std::string(name) + "' may hold only letters, digits, '-' and '_'"};
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

template <class Table> auto findDirective(const Table &table, std::string_view word)
{
    const auto found = std::find_if(std::begin(table), std::end(table),
                                    [word](const auto &entry) { return entry.word == word; });
    if (found == std::end(table))
        throw Fault{"unknown directive '" + std::string(word) + "'"};
    return found;
}

class Parser
{
public:
    explicit Parser(Script &script) : script_(script) {}

    void readLine(std::string_view line)
    {
        ++line_;
        checkText(line);
        Words words(line);
        if (words.atEnd())
            return;
        const std::string_view first = words.word("a directive");
        if (first == "at")
            readTimed(words);
        else
            readHeader(first, words);
        words.end();
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
    static void checkText(std::string_view line)
    {
        if (line.find('\r') != std::string_view::npos)
            throw Fault{"carriage return; lines end in a line feed alone"};
        if (line.find(kByteOrderMark) != std::string_view::npos)
            throw Fault{"byte-order mark; save the script without one"};
        if (!platform::common::isUtf8(line))
            throw Fault{"not UTF-8 text"};
    }

    void readHeader(std::string_view word, Words &words)
    {
        const auto directive = findDirective(kHeaderDirectives, word);
        if (!script_.timeline.empty())
            throw Fault{"'" + std::string(word) + "' must stand before the timed lines"};
        if (!seenHeaders_.insert(directive->word).second && !directive->repeatable)
            throw Fault{"'" + std::string(word) + "' stands here a second time"};
        directive->read(words, script_);
    }

    void readTimed(Words &words)
    {
        const std::uint32_t atMs = words.number("time", kMaxNumber);
        if (!script_.timeline.empty() && atMs < script_.timeline.back().atMs)
            throw Fault{"time " + std::to_string(atMs) + " is before the previous line's " +
                        std::to_string(script_.timeline.back().atMs)};
        script_.timeline.push_back({atMs, readAction(words.word("what happens"), words), line_});
    }

    static Action readAction(std::string_view word, Words &words)
    {
        if (const MessageWord *named = findWord(word))
            return namedMessage(*named, words);
        return findDirective(kTimedDirectives, word)->read(words);
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
    try {
        while (!text.empty()) {
            const std::size_t length = std::min(text.find('\n'), text.size());
            parser.readLine(text.substr(0, length));
            text.remove_prefix(std::min(length + 1, text.size()));
        }
    } catch (const Fault &fault) {
        return ScriptFault{parser.line(), fault.what};
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
