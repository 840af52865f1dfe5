#include "replay/script_rewriting.h"

#include <algorithm>
#include <limits>
#include <string_view>
#include <utility>

namespace replay
{
namespace
{

constexpr std::uint32_t kLatestMs = std::numeric_limits<std::uint32_t>::max();

/// Takes the first line off a text that is not empty, with its line feed where it has one.
std::string_view takeLine(std::string_view &text)
{
    const std::string_view line = text.substr(0, std::min(text.find('\n'), text.size() - 1) + 1);
    text.remove_prefix(line.size());
    return line;
}

/// Puts a text together whose comments stay above the timed line that they are about.
class Rewriter
{
public:
    explicit Rewriter(const std::vector<AddedLine> &added) : added_(added) {}

    void copyUntimed(std::string_view line) { untimed_ += line; }

    void dropTimed() { flushUntimed(); }

    void copyTimed(const TimedAction &timed, std::string_view line)
    {
        const bool quits = isQuit(timed.action);
        addLines([&](const AddedLine &added) { return quits || added.atMs < timed.atMs; }, timed.atMs);
        flushUntimed();
        text_ += line;
    }

    std::string finish()
    {
        addLines([](const AddedLine &) { return true; }, kLatestMs);
        flushUntimed();
        return std::move(text_);
    }

private:
    template <class Condition> void addLines(Condition comesHere, std::uint32_t latestMs)
    {
        if (text_.empty())
            flushUntimed(); // What a script begins with stays at its beginning.
        for (; next_ < added_.size() && comesHere(added_[next_]); ++next_) {
            if (!text_.empty() && text_.back() != '\n')
                text_ += '\n';
            const AddedLine &added = added_[next_];
            text_ += "at " + std::to_string(std::min(added.atMs, latestMs)) + ' ' + added.what + '\n';
        }
    }

    void flushUntimed()
    {
        text_ += untimed_;
        untimed_.clear();
    }

    const std::vector<AddedLine> &added_;
    std::size_t next_ = 0;
    std::string text_;
    std::string untimed_; ///< Copied since the last timed line.
};

} // namespace

std::string rewritten(const Script &script, const std::function<bool(const TimedAction &)> &isDropped,
                      const std::vector<AddedLine> &added)
{
    Rewriter rewriter(added);
    auto timed = script.timeline.begin();
    std::size_t number = 0;
    for (std::string_view rest = script.text; !rest.empty();) {
        const std::string_view line = takeLine(rest);
        if (timed == script.timeline.end() || timed->line != ++number)
            rewriter.copyUntimed(line);
        else if (isDropped(*timed++))
            rewriter.dropTimed();
        else
            rewriter.copyTimed(*std::prev(timed), line);
    }
    return rewriter.finish();
}

} // namespace replay
