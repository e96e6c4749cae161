// The player screen comes up when a launch gives the player something to
// play, also on the first launch, where the library asks for no screen.

#include "host/engine/HostEngine.h"
#include "host/platform/media/database/MediaDatabase.h"
#include "tests/support/MainWindowFixture.h"
#include "tests/support/SongBuilder.h"

namespace {

using PlayerScreenLaunchTest = MainWindowFixture;

bool screenShown()
{
    HostEngine* engine = HostEngine::liveEngine();
    return engine && engine->isPlayerShown();
}

TEST_F(PlayerScreenLaunchTest, PassedFileAndLibraryLaunch_ShowTheScreen)
{
    const QString path = writeDataFile("a.wav", {});
    create(path);
    EXPECT_TRUE(waitUntil(screenShown)) << "a passed file";
    EXPECT_FALSE(journalCalls().contains("engine:showPlayer")) << "the library did not ask";
    window.reset();
    ASSERT_EQ(HostEngine::liveEngine(), nullptr);

    {
        auto database = MediaDatabase::open(MediaDatabase::defaultFile());
        ASSERT_TRUE(database);
        ASSERT_NE(database->addMedia(song(path).title("A")), 0u);
    }
    // Without a file or an action the start-up plays the whole library.
    create();
    EXPECT_TRUE(waitUntil(screenShown)) << "a list";
    EXPECT_TRUE(journalCalls().contains("engine:setPlayList"));
}

} // namespace
