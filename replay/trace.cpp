#include "replay/trace.h"

#include <array>
#include <charconv>
#include <concepts>
#include <libdeflate.h>
#include <map>

#include "replay/state_members.h"

namespace replay
{
namespace
{

/// Writes JSON without spaces; members and elements are parted by commas.
class JsonWriter
{
public:
    explicit JsonWriter(std::string &text) : text(text) {}

    void open(char bracket)
    {
        text += bracket;
        first = true;
    }

    void close(char bracket)
    {
        text += bracket;
        first = false;
    }

    void member(std::string_view name)
    {
        separate();
        ((text += '"') += name) += "\":";
        first = true;
    }

    template <std::integral Number> void number(Number value)
    {
        separate();
        std::array<char, 24> digits;
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
        text.append(digits.data(), end);
    }

    /// The text must not need escapes.
    void string(std::string_view value)
    {
        separate();
        ((text += '"') += value) += '"';
    }

    /// Puts a comma before every element but the first.
    void separate()
    {
        if (!first)
            text += ',';
        first = false;
    }

private:
    std::string &text;
    bool first = true;
};

/// Writes the members of the state, whatever their kind.
struct MemberWriter {
    JsonWriter &json;

    void operator()(std::string_view name, std::int32_t value) const
    {
        json.member(name);
        json.number(value);
    }

    void operator()(std::string_view name, const mygame::Player &player) const
    {
        json.member(name);
        json.open('{');
        visitMembers(player, *this);
        json.close('}');
    }

    template <class Record>
    void operator()(std::string_view name, const std::map<std::int32_t, Record> &table) const
    {
        json.member(name);
        json.open('[');
        for (const auto &[id, record] : table) {
            json.separate();
            json.open('[');
            json.number(id);
            json.number(record.x);
            json.number(record.y);
            json.close(']');
        }
        json.close(']');
    }
};

std::string hexDigits(std::uint32_t value)
{
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string digits(8, '0');
    for (std::size_t i = digits.size(); i-- > 0; value >>= 4)
        digits[i] = kDigits[value & 0xF];
    return digits;
}

} // namespace

void appendFrame(std::string &trace, const FrameRecord &frame)
{
    JsonWriter json(trace);
    json.open('{');
    json.member("frame");
    json.number(frame.number);
    json.member("tick");
    json.number(frame.tick);
    json.member("screen");
    json.string(frame.screen);
    json.member("crc");
    json.string(hexDigits(libdeflate_crc32(0, frame.frameBuffer.data(), frame.frameBuffer.size())));
    json.member("sounds");
    json.open('[');
    for (const std::string &sound : frame.sounds)
        json.string(sound);
    json.close(']');
    json.member("state");
    json.open('{');
    visitMembers(frame.state, MemberWriter{json});
    json.close('}');
    json.close('}');
    trace += '\n';
}

} // namespace replay
