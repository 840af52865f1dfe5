#include "replay/trace.h"

#include <array>
#include <charconv>
#include <concepts>
#include <map>

#include "replay/checksum.h"
#include "replay/state_members.h"

namespace replay
{
namespace
{

/// Writes JSON without spaces; members and elements are separated by commas.
class JsonWriter
{
public:
    explicit JsonWriter(std::string &text) : text_(text) {}

    void open(char bracket)
    {
        text_ += bracket;
        first_ = true;
    }

    void close(char bracket)
    {
        text_ += bracket;
        first_ = false;
    }

    void member(std::string_view name)
    {
        separate();
        ((text_ += '"') += name) += "\":";
        first_ = true;
    }

    template <std::integral Number> void number(Number value)
    {
        separate();
        std::array<char, 24> digits;
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
        text_.append(digits.data(), end);
    }

    /// The text_ must not need escapes.
    void string(std::string_view value)
    {
        separate();
        ((text_ += '"') += value) += '"';
    }

    /// Puts a comma before every element but the first_.
    void separate()
    {
        if (!first_)
            text_ += ',';
        first_ = false;
    }

private:
    std::string &text_;
    bool first_ = true;
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

} // namespace

std::string traceLine(const FrameRecord &frame)
{
    std::string line;
    JsonWriter json(line);
    json.open('{');
    json.member("frame");
    json.number(frame.number);
    json.member("tick");
    json.number(frame.tick);
    json.member("screen");
    json.string(frame.screen);
    json.member("crc");
    json.string(checksumDigits(frame.checksum));
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
    line += '\n';
    return line;
}

} // namespace replay
