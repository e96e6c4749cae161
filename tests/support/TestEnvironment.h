#pragma once
// What every test that touches the host platform starts from: a fresh data
// folder, a new phone, the journal captured in memory, and the engine's
// clock in manual mode.

#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>

#include <gtest/gtest.h>

/** Runs the event loop until @p condition holds or @p timeoutMs passes; whether it held. */
bool waitUntil(const std::function<bool()>& condition, int timeoutMs = 2000);

class TestEnvironment : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    /** The journal lines captured since the test started. */
    static QList<QJsonObject> journal();
    /** "kind:call" of every captured line that records a call, in order
     *  (e.g. "engine:setFile", "report:updateState"). */
    static QStringList journalCalls();
    /** The captured lines of one kind with one call name. */
    static QList<QJsonObject> journalLines(const QString& kind, const QString& call);
    /** The args of the captured lines of one kind and call, in order. */
    static QList<QJsonArray> journalArgs(const QString& kind, const QString& call);

    /** Runs the event loop until @p condition holds or @p timeoutMs passes. */
    static bool waitUntil(const std::function<bool()>& condition, int timeoutMs = 2000)
    {
        return ::waitUntil(condition, timeoutMs);
    }
    /** Runs the event loop until nothing is left to do right now. */
    static void processEvents();

    QString dataPath(const QString& name) const;
    /** Writes @p contents to dataPath(@p name), making its folder; returns the
     *  path. Untagged, a song plays for the engine's default ten seconds. */
    QString writeDataFile(const QString& name, const QByteArray& contents = "no tags") const;

private:
    QTemporaryDir m_dataDir;
};
