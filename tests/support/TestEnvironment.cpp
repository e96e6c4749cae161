#include "tests/support/TestEnvironment.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>

#include "host/engine/HostEngineClock.h"
#include "host/platform/toolkit/HostDialogs.h"
#include "host/platform/HostJournal.h"
#include "host/platform/services/HostLaunchAction.h"
#include "host/platform/phone/HostPhone.h"

void TestEnvironment::SetUp()
{
    ASSERT_TRUE(m_dataDir.isValid());
    qputenv("MP_DATA_DIR", m_dataDir.path().toLocal8Bit());
    qunsetenv("MP_JOURNAL");
    HostPhone::reset();
    HostLaunchAction::clear();
    HostDialogs::clearAnswers();
    HostEngineClock::setManual(true);
    HostJournal::startCapture();
}

void TestEnvironment::TearDown()
{
    processEvents();
    HostJournal::stopCapture();
    qunsetenv("MP_DATA_DIR");
}

QList<QJsonObject> TestEnvironment::journal()
{
    return HostJournal::captured();
}

QStringList TestEnvironment::journalCalls()
{
    QStringList calls;
    for (const QJsonObject& line : HostJournal::captured()) {
        if (line.contains(QLatin1String("call")))
            calls.append(line.value(QLatin1String("kind")).toString() + QLatin1Char(':')
                         + line.value(QLatin1String("call")).toString());
    }
    return calls;
}

QList<QJsonObject> TestEnvironment::journalLines(const QString& kind, const QString& call)
{
    QList<QJsonObject> lines;
    for (const QJsonObject& line : HostJournal::captured()) {
        if (line.value(QLatin1String("kind")).toString() == kind && line.value(QLatin1String("call")).toString() == call)
            lines.append(line);
    }
    return lines;
}

bool TestEnvironment::waitUntil(const std::function<bool()>& condition, int timeoutMs)
{
    QDeadlineTimer deadline(timeoutMs);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    return true;
}

void TestEnvironment::processEvents()
{
    for (int round = 0; round < 3; ++round)
        QCoreApplication::processEvents(QEventLoop::AllEvents);
}

QString TestEnvironment::dataPath(const QString& name) const
{
    return m_dataDir.filePath(name);
}
