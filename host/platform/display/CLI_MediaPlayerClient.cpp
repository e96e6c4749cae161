#include "platform/CLI_MediaPlayerClient.h"

#include <QJsonArray>
#include <QJsonObject>

#include "host/platform/HostJournal.h"
#include "host/platform/display/HostDisplay.h"

namespace {

void journal(const char* call, const QJsonArray& args = {})
{
    HostJournal::call(QStringLiteral("display"), QLatin1String(call), args);
}

} // namespace

namespace CLI {

BaseFeatureClient::BaseFeatureClient(QObject* parent, const char* name) : QObject(parent)
{
    if (name)
        setObjectName(QString::fromLatin1(name));
}

BaseFeatureClient::~BaseFeatureClient()
{
    // A client that goes without ending its session gives the display back
    // all the same; no call was made, so nothing is journaled.
    HostDisplay::sessionClosed(this);
}

void BaseFeatureClient::beginSession()
{
    journal("beginSession");
    m_sessionOpen = true;
    HostDisplay::sessionOpened(this);
}

void BaseFeatureClient::endSession()
{
    journal("endSession");
    m_sessionOpen = false;
    HostDisplay::sessionClosed(this);
}

MediaPlayerClient::MediaPlayerClient(QObject* parent, const char* name) : BaseFeatureClient(parent, name) {}

MediaPlayerClient::~MediaPlayerClient() = default;

void MediaPlayerClient::informState(unsigned char state)
{
    journal("informState", {int(state)});
}

void MediaPlayerClient::informMediaType(unsigned char type)
{
    journal("informMediaType", {int(type)});
}

void MediaPlayerClient::informMuteState(int muted)
{
    journal("informMuteState", {muted});
}

void MediaPlayerClient::informVolume(unsigned char level)
{
    journal("informVolume", {int(level)});
}

void MediaPlayerClient::informPosition(unsigned int elapsed, unsigned int reserved)
{
    journal("informPosition", {qint64(elapsed), qint64(reserved)});
}

void MediaPlayerClient::informTotalDuration(unsigned int total)
{
    journal("informTotalDuration", {qint64(total)});
}

void MediaPlayerClient::informBufferingPercentage(unsigned short percent)
{
    journal("informBufferingPercentage", {int(percent)});
}

void MediaPlayerClient::informDownloadProgress(unsigned int progress)
{
    journal("informDownloadProgress", {qint64(progress)});
}

void MediaPlayerClient::informFileName(const QString& fileName)
{
    journal("informFileName", {fileName});
}

void MediaPlayerClient::informMessage(const QString& message)
{
    journal("informMessage", {message});
}

void MediaPlayerClient::informStaticStreamInfo(const StaticStreamInfo& info)
{
    journal("informStaticStreamInfo", {QJsonObject{{"title", info.title},
                                                    {"artist", info.artist},
                                                    {"album", info.album},
                                                    {"data", QString::fromLatin1(info.data.toHex())}}});
}

} // namespace CLI
