#include "tests/support/TestEnvironment.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QDeadlineTimer>
#include <QFileInfo>

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
    HostDialogs::setInteractive(false);
    HostEngineClock::setManual(true);
    HostJournal::startCapture();
}

void TestEnvironment::TearDown()
{
    processEvents();
    HostJournal::stopCapture();
    qunsetenv("MP_DATA_DIR");
}

bool waitUntil(const std::function<bool()>& condition, int timeoutMs)
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

QString TestEnvironment::writeDataFile(const QString& name, const QByteArray& contents) const
{
    QFile file(dataPath(name));
    QDir().mkpath(QFileInfo(file).absolutePath());
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size()) << qPrintable(name);
    return file.fileName();
}
