// What the desktop may pass to mp-mpris's methods and writable properties:
// Seek and SetPosition with any 64-bit offsets and positions and any track
// id, LoopStatus with any text, Shuffle either way, and the plain calls, in
// any order, while the player's position and length move.
//
// Input: records of one byte O (the operation: O % 8) followed by its
// arguments: an offset or position as 8 bytes big-endian, a text as a byte
// count and the bytes, a time as two bytes (seconds). A record cut short
// reads its missing bytes as 0.
//
// Besides not crashing and no undefined behaviour (no overflow, whatever the
// offset), the requests must keep their contract, checked here: only the
// idle screen's request names go out, a seek carries one positive 32-bit
// count of steps and is followed by its end, and nothing goes out without a
// player.

#include <QByteArray>
#include <QDataStream>
#include <QString>

#include <cstddef>
#include <cstdint>

#include "fuzz/support/FuzzCheck.h"
#include "fuzz/support/FuzzInput.h"
#include "host/contracts/IdleScreenChannel.h"
#include "host/contracts/MediaBrowserChannel.h"
#include "host/tools/mp-mpris/PlaySettings.h"
#include "host/tools/mp-mpris/PlayerMirror.h"
#include "host/tools/mp-mpris/PlayerRequests.h"
#include "host/tools/mp-mpris/TrackLookup.h"
#include "platform/StreamEncoding.h"

namespace {

class NoTracks : public TrackLookup {
public:
    std::optional<MediaRecord> find(const QString&) const override { return std::nullopt; }
};

class MemorySettings : public PlaySettings {
public:
    int shuffleMode() const override { return m_mode; }
    bool repeat() const override { return false; }
    void storeShuffleMode(int mode) override { m_mode = mode; }

private:
    int m_mode = 0;
};

qint64 takeInt64(FuzzInput& input)
{
    quint64 value = 0;
    for (int i = 0; i < 4; ++i)
        value = (value << 16) | input.takeUint16();
    return qint64(value);
}

QByteArray timeText(uint16_t seconds)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    MP_SetPayloadFormat(stream);
    stream << QString::asprintf("%d:%02d", seconds / 60, seconds % 60);
    return bytes;
}

// Checks one request as the player would receive it.
class RequestCheck {
public:
    void operator()(const QCString& request, const QByteArray& data)
    {
        using namespace IdleScreenChannel;
        static const char* const known[] = {kPlay,    kPause,   kNext,     kPrev,      kShuffle, kRepeat,
                                            kRestore, kQuit,    kSeekEnd,  kSeekForth, kSeekBack};
        bool isKnown = false;
        for (const char* name : known)
            isKnown = isKnown || request == name;
        fuzzCheck(isKnown && present);
        const bool isSeek = request == kSeekForth || request == kSeekBack;
        fuzzCheck(!seekOpen || request == kSeekEnd);  // a seek's end follows it at once
        seekOpen = isSeek;
        if (isSeek) {
            QDataStream stream(data);
            MP_SetPayloadFormat(stream);
            qint32 steps = 0;
            stream >> steps;
            fuzzCheck(data.size() == 4 && steps > 0);
        } else {
            fuzzCheck(data.isEmpty());
        }
    }

    bool present = false;
    bool seekOpen = false;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const NoTracks tracks;
    MemorySettings settings;
    PlayerMirror mirror(tracks, settings);
    RequestCheck check;
    PlayerRequests requests(mirror, settings, [&check](const QCString& request, const QByteArray& payload) {
        check(request, payload);
    });
    FuzzInput input(data, size);
    while (!input.atEnd()) {
        check.present = mirror.isPresent();
        switch (input.takeByte() % 8) {
        case 0:
            requests.seek(takeInt64(input));
            break;
        case 1: {
            const bool current = input.takeByte() & 1;
            const QString trackId = current ? mirror.trackId() : QString::fromUtf8(input.take(input.takeByte()));
            requests.setPosition(trackId, takeInt64(input));
            break;
        }
        case 2:
            requests.setLoopStatus(QString::fromUtf8(input.take(input.takeByte())));
            break;
        case 3:
            requests.setShuffle(input.takeByte() & 1);
            break;
        case 4:
            mirror.receive(IdleScreenChannel::kChannel, IdleScreenChannel::kTotalTime, timeText(input.takeUint16()));
            break;
        case 5:
            mirror.receive(IdleScreenChannel::kChannel, IdleScreenChannel::kElapsedTime, timeText(input.takeUint16()));
            break;
        case 6:
            mirror.receive(MediaBrowserChannel::kNewsChannel,
                           input.takeByte() & 1 ? MediaBrowserChannel::kStarted : MediaBrowserChannel::kExited,
                           QByteArray());
            break;
        default:
            requests.play();
            requests.pause();
            requests.playPause();
            requests.stop();
            requests.next();
            requests.previous();
            requests.raise();
            requests.quit();
            break;
        }
        fuzzCheck(!check.seekOpen);
    }
    return 0;
}
