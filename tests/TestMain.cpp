// Runs every test inside one QApplication on the offscreen platform, with the
// library's trace lines going to a log file instead of the test output.

#include <QApplication>
#include <QDir>

#include <gtest/gtest.h>

#include <cstdio>

#include "platform/TraceLog.h"

namespace {

QtMessageHandler previousHandler = nullptr;

// A connection by name to a signal or slot that does not exist is only a
// warning at run time, and the item or request it was for does nothing: in
// the tests it is a failure of the test that made it.
void failOnBrokenConnection(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (type == QtWarningMsg && message.startsWith(QLatin1String("QObject::connect: "))
        && (message.contains(QLatin1String("No such")) || message.contains(QLatin1String("Incompatible"))))
        ADD_FAILURE() << qPrintable(message);
    previousHandler(type, context, message);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Channel messages of the tests stay in their process: tests running side
    // by side on one session bus would otherwise hear each other. The tests of
    // messages between processes start a bus of their own.
    qputenv("MP_QCOP_LOCAL", "1");
    testing::InitGoogleTest(&argc, argv);
    QApplication app(argc, argv);
    previousHandler = qInstallMessageHandler(failOnBrokenConnection);
    FILE* log = std::fopen((QDir::tempPath() + QStringLiteral("/mp_tests-trace.log")).toLocal8Bit().constData(), "w");
    LOG_SetStream(log);
    const int result = RUN_ALL_TESTS();
    LOG_SetStream(nullptr);
    if (log)
        std::fclose(log);
    return result;
}
