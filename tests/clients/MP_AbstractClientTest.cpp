#include "clients/MP_AbstractClient.h"

#include <memory>

#include <gtest/gtest.h>

#include "tests/support/FakeEngine.h"

namespace {

// A client as a derived one is made, overriding nothing.
class PlainClient : public MP_AbstractClient {
public:
    using MP_AbstractClient::MP_AbstractClient;
    using MP_AbstractClient::onNext;
    using MP_AbstractClient::onPlayPause;
    using MP_AbstractClient::onPrevious;
    using MP_AbstractClient::onSeek;
    using MP_AbstractClient::onSeekFinished;
    using MP_AbstractClient::onSetMute;
    using MP_AbstractClient::onSetVolume;
    using MP_AbstractClient::onStop;

    void pressEverything()
    {
        onPlayPause();
        onNext();
        onPrevious();
        onStop();
        onSeek(5000);
        onSeekFinished();
        onSetMute(true);
        onSetVolume(4);
    }
};

TEST(MP_AbstractClientTest, RegistersAndUnregistersOnceEachInOrder)
{
    FakeEngine engine;
    auto client = std::make_unique<PlainClient>(&engine);
    EXPECT_EQ(client->getCommonPlayer(), &engine);
    client.reset();
    EXPECT_EQ(engine.calls, (QStringList{"addListListener()", "addPlayerListener()", "removeListListener()",
                                         "removePlayerListener()"}));
}

TEST(MP_AbstractClientTest, Slots_ForwardToTheControlLookedUpAtEachCall)
{
    FakeEngine engine;
    PlainClient client(&engine);
    client.pressEverything();
    EXPECT_EQ(engine.control.calls, (QStringList{"playPause()", "next()", "previous()", "stop()", "seek(5000)",
                                                 "seekFinished()", "setMute(1)", "setVolume(4)"}));
    EXPECT_EQ(client.getPlayingContentName(), "Song");

    // Without a control every slot is a silent no-op.
    engine.hasControl = false;
    engine.control.calls.clear();
    client.pressEverything();
    EXPECT_TRUE(engine.control.calls.isEmpty());
    EXPECT_EQ(client.getPlayingContentName(), "");
    EXPECT_FALSE(client.getPlayingContentName().isNull());
}

} // namespace
