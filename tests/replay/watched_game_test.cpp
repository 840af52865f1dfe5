/// How a recorded game goes on while it is watched.
#include "replay/watched_game.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/device_test.h"

namespace mygame::tests
{
namespace
{

struct Watching : DeviceTest {
    static replay::Script script(const std::string &text)
    {
        replay::Script script;
        EXPECT_FALSE(parseScript(text, script));
        return script;
    }

    static std::vector<std::uint16_t> pictureOf(const replay::WatchedGame &game)
    {
        return {game.picture().begin(), game.picture().end()};
    }

    const std::string demo = readFile(DEMO_SCRIPT);
};

TEST_F(Watching, FollowsRealTimeAtItsSpeed)
{
    replay::WatchedGame game(script("at 190000 quit"), DATA_FOLDER);
    EXPECT_EQ(titleOf(game), "MyGame – 0:00 of 3:10, 1 ×");
    game.faster();
    game.faster();
    game.pass(10500);
    EXPECT_EQ(titleOf(game), "MyGame – 0:42 of 3:10, 4 ×");
    for (int i = 0; i < 9; ++i)
        game.slower();
    game.pass(1000);
    EXPECT_EQ(game.positionMs(), 42250u);
    game.togglePause();
    game.pass(5000);
    EXPECT_EQ(titleOf(game), "MyGame – 0:42 of 3:10, ¼ ×, paused");
    for (int i = 0; i < 9; ++i)
        game.faster();
    game.togglePause();
    game.pass(1000);
    EXPECT_EQ(titleOf(game), "MyGame – 0:58 of 3:10, 16 ×");
    game.pass(100000);
    EXPECT_EQ(titleOf(game), "MyGame – 3:10 of 3:10, 16 ×");
}

TEST_F(Watching, ShowsTheSameFromWhereverItComes)
{
    replay::WatchedGame game(script(demo), DATA_FOLDER);
    std::vector<std::vector<std::uint16_t>> pictures;
    std::size_t sounds = 0;
    for (std::uint32_t ms = 0; ms < game.lengthMs(); ms += 500) {
        pictures.push_back(pictureOf(game));
        game.pass(500);
        sounds += game.takeSounds().size();
    }
    EXPECT_GT(sounds, 0u);
    EXPECT_TRUE(pictures[3] != pictures[9]);
    for (const std::size_t i : {3u, 9u, 6u, 1u}) {
        game.seek(static_cast<std::int64_t>(i) * 500);
        EXPECT_TRUE(pictureOf(game) == pictures[i]) << i;
        EXPECT_TRUE(game.takeSounds().empty());
    }
    game.seek(-5000);
    EXPECT_EQ(game.positionMs(), 0u);
    game.seek(1 << 30);
    EXPECT_EQ(game.positionMs(), game.lengthMs());
    EXPECT_FALSE(game.firstWrongFrame());
}

TEST_F(Watching, SaysWhereThePicturesAreNotThoseRecorded)
{
    replay::WatchedGame game(script("refresh 50\nat 80 check 00000000\nat 100 check 00000000\nat 3000 quit"),
                             DATA_FOLDER);
    game.pass(90);
    game.seek(0);
    game.seek(2000);
    EXPECT_EQ(titleOf(game),
              "MyGame – 0:02 of 0:03, 1 × – The pictures are not those recorded, from frame 9 on.");
}

TEST_F(Watching, MissesPicturesThatDoNotCome)
{
    replay::WatchedGame game(script("display-error 1\nat 100 check 00000000\nat 1000 quit"), DATA_FOLDER);
    game.seek(1000);
    EXPECT_TRUE(game.firstWrongFrame());
}

} // namespace
} // namespace mygame::tests
