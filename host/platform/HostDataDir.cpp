#include "host/platform/HostDataDir.h"

#include <QDir>
#include <QFile>
#include <QMutex>
#include <QSet>
#include <QStandardPaths>

#include <cstdio>

#include <unistd.h>

#include "platform/TraceLog.h"

MP_DEFINE_TRACE(DataDirTrace, "HostDataDir")

QString HostDataDir::path()
{
    QString dir = qEnvironmentVariable("MP_DATA_DIR");
    if (dir.isEmpty()) {
        QString base = qEnvironmentVariable("XDG_DATA_HOME");
        if (base.isEmpty())
            base = QDir::homePath() + QStringLiteral("/.local/share");
        dir = base + QStringLiteral("/mediaplayer-host");
    }
    QDir().mkpath(dir);
    return QDir(dir).absolutePath();
}

QString HostDataDir::file(const QString& name)
{
    return path() + QLatin1Char('/') + name;
}

bool HostDataDir::isWritable(const QString& path)
{
    const QByteArray forced = qgetenv("MP_DATA_READ_ONLY");
    if (!forced.isEmpty() && forced != "0")
        return false;
    return ::access(QFile::encodeName(path).constData(), W_OK) == 0;
}

void HostDataDir::reportReadOnly(const QString& folder)
{
    static QMutex mutex;
    static QSet<QString> reported;
    const QString absolute = QDir(folder).absolutePath();
    {
        QMutexLocker lock(&mutex);
        if (reported.contains(absolute))
            return;
        reported.insert(absolute);
    }
    const QByteArray text = "the data folder " + QFile::encodeName(absolute)
                            + " is read-only: playing what is stored, nothing will be saved "
                              "(settings, play history, play lists, last-played list)\n";
    std::fputs(("warning: " + text).constData(), stderr);
    DataDirTrace(1, "%s", text.constData());
}
