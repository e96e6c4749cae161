#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

#include "host/engine/HostEngineConsole.h"

namespace {

// A stream into memory, as the console's terminal or log file.
struct MemoryStream {
    char* buffer = nullptr;
    size_t size = 0;
    FILE* file = open_memstream(&buffer, &size);
    ~MemoryStream()
    {
        std::fclose(file);
        std::free(buffer);
    }
    QByteArray text()
    {
        std::fflush(file);
        return QByteArray(buffer, qsizetype(size));
    }
};

} // namespace

TEST(HostEngineConsoleTest, Log_PrintsTimeOnlyWithNewItemsAndStateChanges)
{
    MemoryStream stream;
    HostEngineConsole console(stream.file, false);
    console.mediaLoaded("Night Drive", "Aurora Lane", "Coastlines", "/m/night.mp3", 0, 10000);
    console.stateChanged(MP_STATE_STOPPED, QString(), 0, 10000);
    console.stateChanged(MP_STATE_PLAYING, QString(), 0, 10000);
    console.timeChanged(1000, 10000);
    console.timeChanged(2000, 10000);
    console.stateChanged(MP_STATE_PAUSED, QString(), 3000, 10000);
    console.mediaLoaded("clip", QString(), QString(), "/m/clip.3gp", 0, 10000);
    console.stateChanged(MP_STATE_ERROR, "gone cannot be played.", 0, 0);

    EXPECT_EQ(QString::fromLocal8Bit(stream.text()),
              QString("Playing: Night Drive — Aurora Lane (Coastlines)  [/m/night.mp3]\n"
                      "0:00 / 0:10\n"
                      "State: stopped\n"
                      "State: playing\n"
                      "State: paused\n"
                      "0:03 / 0:10\n"
                      "Playing: clip  [/m/clip.3gp]\n"
                      "0:00 / 0:10\n"
                      "State: error — gone cannot be played.\n"));
}

TEST(HostEngineConsoleTest, Terminal_RewritesTheTimeLineInPlace)
{
    MemoryStream stream;
    HostEngineConsole console(stream.file, true);
    console.mediaLoaded("Song", "Band", QString(), "/m/s.mp3", 0, 3600000);
    console.timeChanged(1000, 3600000);
    console.stateChanged(MP_STATE_PAUSED, QString(), 1000, 3600000);

    EXPECT_EQ(stream.text(), QByteArray("Playing: Song — Band  [/m/s.mp3]\n"
                                                  "\r0:00 / 1:00:00"
                                                  "\r0:01 / 1:00:00"
                                                  "\nState: paused\n"
                                                  "\r0:01 / 1:00:00"));
}
