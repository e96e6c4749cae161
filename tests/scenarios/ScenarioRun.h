#pragma once
// Runs the host application on a scenario script, in a fresh data folder,
// with the sample library as its working folder, and reads back its journal.

#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

class ScenarioRun {
public:
    ScenarioRun();

    /** The folder of the sample library that scripts name files relative to. */
    static QString sampleLibrary();
    /** Path of a scenario script in the source tree (tests/scenarios/NAME). */
    static QString script(const QString& name);

    /** Scans the sample library into this run's media database with mp-scan; true on success. */
    bool scanSampleLibrary();

    /** Runs `mediaplayer --data-dir D --journal J --quiet --script SCRIPT ARGS...`;
     *  returns its exit code (-1 when it did not finish within a minute). */
    int run(const QString& scriptPath, const QStringList& extraArguments = {});

    /** Writes @p lines to textScriptPath() and runs it as run() does. */
    int runText(const QByteArray& lines, const QStringList& extraArguments = {});
    /** Where runText() writes its script (error messages name it). */
    QString textScriptPath() const { return m_scriptDir.filePath(QStringLiteral("text.mps")); }

    /** Runs `mediaplayer --data-dir D --journal J --quiet ARGS...` without a script,
     *  as a person would without a display; same result as run(). */
    int runWithoutScript(const QStringList& arguments);

    QString errorOutput() const { return m_errorOutput; }
    QList<QJsonObject> journal() const;
    /** The args of the journal lines of one kind and call, in order. */
    QList<QJsonArray> argsOf(const QString& kind, const QString& call) const;
    /** The titles the engine reported playing, in order. */
    QStringList titlesPlayed() const;
    QString dataDir() const { return m_dataDir.path(); }

private:
    QTemporaryDir m_dataDir;
    QTemporaryDir m_scriptDir;
    QString m_journalPath;
    QString m_errorOutput;
};
