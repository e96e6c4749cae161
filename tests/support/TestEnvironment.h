#pragma once
// What every test that touches the host platform starts from: a fresh data
// folder, a new phone, the journal captured in memory, and the engine's
// clock in manual mode.

#include <QTemporaryDir>

#include <functional>

#include <gtest/gtest.h>

#include "tests/support/Journal.h"

/** Runs the event loop until @p condition holds or @p timeoutMs passes; whether it held. */
bool waitUntil(const std::function<bool()>& condition, int timeoutMs = 2000);

class TestEnvironment : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // The journal captured since the test started, through Journal's queries.
    static JournalLines journal() { return Journal::captured(); }
    /** "kind:call" of every line that records a call (e.g. "engine:setFile", "report:updateState"). */
    static QStringList journalCalls() { return Journal::calls(journal()); }
    static JournalLines journalLines(const QString& kind, const QString& call)
    {
        return Journal::linesOf(journal(), kind, call);
    }
    static QList<QJsonArray> journalArgs(const QString& kind, const QString& call)
    {
        return Journal::argsOf(journal(), kind, call);
    }

    /** Runs the event loop until nothing is left to do right now. */
    static void processEvents();

    QString dataPath(const QString& name) const { return m_dataDir.filePath(name); }
    /** Writes @p contents to dataPath(@p name), making its folder; returns the
     *  path. Untagged, a song plays for the engine's default ten seconds. */
    QString writeDataFile(const QString& name, const QByteArray& contents = "no tags") const;

private:
    QTemporaryDir m_dataDir;
};
