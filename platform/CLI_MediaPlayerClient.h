#pragma once
// The external display of a flip phone. While a feature client's session is
// open, the display shows what the client informs it of and sends the user's
// commands back as the client's signals. The media player's feature client
// is CLI::MediaPlayerClient.

#include <QByteArray>
#include <QObject>
#include <QString>

#include <cstdint>

typedef std::int32_t INT32;
typedef std::uint8_t UINT8;

/** The display's stream information: what is playing. */
struct StaticStreamInfo {
    QString title;
    QString artist;
    QString album;
    /** The engine's binary meta information, passed through unread. */
    QByteArray data;
};

namespace CLI {

/** A feature of the external display; its session is what it shows. */
class BaseFeatureClient : public QObject {
    Q_OBJECT
public:
    explicit BaseFeatureClient(QObject* parent = nullptr, const char* name = nullptr);
    ~BaseFeatureClient() override;

    /** Takes the display: from now on it shows this feature. */
    virtual void beginSession();
    /** Gives the display back. Also happens when the client is destroyed. */
    virtual void endSession();
    bool isSessionOpen() const { return m_sessionOpen; }

private:
    bool m_sessionOpen = false;
    Q_DISABLE_COPY(BaseFeatureClient)
};

/** The media player on the external display. */
class MediaPlayerClient : public BaseFeatureClient {
    Q_OBJECT
public:
    explicit MediaPlayerClient(QObject* parent = nullptr, const char* name = nullptr);
    ~MediaPlayerClient() override;

    /** 1 stopped, 2 playing, 3 paused. */
    void informState(unsigned char state);
    /** 0 local file, 1 any other medium. */
    void informMediaType(unsigned char type);
    /** 1 muted, 0 not. */
    void informMuteState(int muted);
    void informVolume(unsigned char level);
    void informPosition(unsigned int elapsed, unsigned int reserved);
    void informTotalDuration(unsigned int total);
    void informBufferingPercentage(unsigned short percent);
    void informDownloadProgress(unsigned int progress);
    void informFileName(const QString& fileName);
    /** A text the display shows to the user (an error, the connection state). */
    void informMessage(const QString& message);
    void informStaticStreamInfo(const StaticStreamInfo& info);

Q_SIGNALS:
    // The user's commands on the display.
    void exit();
    void stop();
    /** Seek by a signed offset; repeated while the key is held. */
    void shift(INT32 offset);
    /** The seek key was released. */
    void shiftFinished();
    void pause();
    void play();
    void next();
    void previous();
    void setMute(bool mute);
    void setVolume(UINT8 level);

private:
    Q_DISABLE_COPY(MediaPlayerClient)
};

} // namespace CLI
