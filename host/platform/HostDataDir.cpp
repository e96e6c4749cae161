#include "host/platform/HostDataDir.h"

#include <QDir>
#include <QStandardPaths>

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
