// What mp-mpris learns from the player's channel messages: any sequence of
// messages on the three channels it hears, with any names and payloads, as
// another process on the bus may send them.
//
// Input: records of byte C (the channel: C % 3 picks one of the three), byte
// N, N bytes of message name, byte P, P bytes of payload; a record cut short
// ends the input.
//
// Besides not crashing, the mirror must keep its contract, checked here: the
// properties it reports are the ones it names, positions are never negative
// while a player is present, and after the player's exit nothing is playing.

#include <QByteArray>
#include <QVariantMap>

#include <cstddef>
#include <cstdint>
#include <optional>

#include "fuzz/support/FuzzCheck.h"
#include "host/contracts/IdleScreenChannel.h"
#include "host/contracts/MediaBrowserChannel.h"
#include "host/contracts/SetupChangeChannel.h"
#include "host/tools/mp-mpris/PlaySettings.h"
#include "host/tools/mp-mpris/PlayerMirror.h"
#include "host/tools/mp-mpris/TrackLookup.h"

namespace {

// Every path is a stored song, so that the lookup's answer is used.
class EveryPathStored : public TrackLookup {
public:
    std::optional<MediaRecord> find(const QString& path) const override
    {
        MediaRecord record;
        record.id = 7;
        record.path = path;
        record.title = QStringLiteral("Title");
        return record;
    }
};

class MemorySettings : public PlaySettings {
public:
    int shuffleMode() const override { return m_mode; }
    bool repeat() const override { return false; }
    void storeShuffleMode(int mode) override { m_mode = mode; }

private:
    int m_mode = 0;
};

// Takes @p length bytes at @p at, or nothing when fewer are left.
std::optional<QByteArray> take(const uint8_t* data, size_t size, size_t& at, size_t length)
{
    if (length > size - at)
        return std::nullopt;
    const QByteArray bytes(reinterpret_cast<const char*>(data + at), qsizetype(length));
    at += length;
    return bytes;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const char* const channels[] = {IdleScreenChannel::kChannel, MediaBrowserChannel::kNewsChannel,
                                           SetupChangeChannel::kChannel};
    const EveryPathStored tracks;
    MemorySettings settings;
    PlayerMirror mirror(tracks, settings);
    size_t at = 0;
    while (size - at >= 2) {
        const uint8_t channel = data[at++];
        const size_t nameLength = data[at++];
        const std::optional<QByteArray> message = take(data, size, at, nameLength);
        if (!message || at == size)
            break;
        const size_t payloadLength = data[at++];
        const std::optional<QByteArray> payload = take(data, size, at, payloadLength);
        if (!payload)
            break;
        mirror.receive(channels[channel % 3], *message, *payload);
        const QVariantMap properties = mirror.playerProperties();
        fuzzCheck(properties.contains(QStringLiteral("PlaybackStatus")));
        fuzzCheck(!mirror.isPresent() || (mirror.position() >= 0 && mirror.length() >= 0));
    }
    mirror.playerGone();
    fuzzCheck(mirror.playbackStatus() != QLatin1String("Playing"));
    return 0;
}
