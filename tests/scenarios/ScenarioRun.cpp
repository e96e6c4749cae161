#include "tests/scenarios/ScenarioRun.h"

#include <QFile>
#include <QJsonArray>
#include <QProcess>

#include "host/tools/samplegen/SampleLibraryWriter.h"
#include "tests/support/Journal.h"
#include "tests/support/ProjectProgram.h"

ScenarioRun::ScenarioRun() : m_journalPath(m_dataDir.filePath(QStringLiteral("journal.jsonl"))) {}

QString ScenarioRun::sampleLibrary()
{
    // Made once per test program; the writer leaves a complete library alone.
    static QTemporaryDir folder;
    static const bool written = SampleLibraryWriter(folder.path()).write();
    return written ? folder.path() : QString();
}

QString ScenarioRun::script(const QString& name)
{
    return ProjectProgram::sourcePath("tests/scenarios/") + name;
}

bool ScenarioRun::scanSampleLibrary()
{
    QProcess scan;
    if (!ProjectProgram::start(scan, QStringLiteral("mp-scan"),
                               {QStringLiteral("--data-dir"), m_dataDir.filePath(QStringLiteral("data")), sampleLibrary()}))
        return false;
    return scan.waitForFinished(60000) && scan.exitStatus() == QProcess::NormalExit && scan.exitCode() == 0;
}

int ScenarioRun::run(const QString& scriptPath, const QStringList& extraArguments)
{
    return runWithoutScript(QStringList{QStringLiteral("--script"), scriptPath} + extraArguments);
}

int ScenarioRun::runText(const QByteArray& lines, const QStringList& extraArguments)
{
    QFile file(textScriptPath());
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(lines) != lines.size())
        return -1;
    file.close();
    return run(textScriptPath(), extraArguments);
}

int ScenarioRun::runWithoutScript(const QStringList& arguments)
{
    QFile::remove(m_journalPath);  // each run's journal on its own
    QProcess process;
    process.setWorkingDirectory(sampleLibrary());
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    // The scripts expect the English texts whatever the machine's language.
    environment.insert(QStringLiteral("LANG"), QStringLiteral("C.UTF-8"));
    environment.insert(QStringLiteral("MP_QCOP_LOCAL"), QStringLiteral("1"));
    process.setProcessEnvironment(environment);
    if (!ProjectProgram::start(process, QStringLiteral("mediaplayer"),
                               QStringList{QStringLiteral("--data-dir"), m_dataDir.filePath(QStringLiteral("data")),
                                           QStringLiteral("--journal"), m_journalPath, QStringLiteral("--log"),
                                           m_dataDir.filePath(QStringLiteral("trace.log")), QStringLiteral("--quiet")}
                                   + arguments))
        return -1;
    if (!process.waitForFinished(60000)) {
        process.kill();
        process.waitForFinished();
        return -1;
    }
    m_errorOutput = QString::fromLocal8Bit(process.readAllStandardError());
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}

QList<QJsonObject> ScenarioRun::journal() const
{
    return Journal::readFile(m_journalPath);
}

QList<QJsonArray> ScenarioRun::argsOf(const QString& kind, const QString& call) const
{
    return Journal::argsOf(journal(), kind, call);
}

QStringList ScenarioRun::titlesPlayed() const
{
    QStringList titles;
    for (const QJsonArray& args : argsOf(QStringLiteral("report"), QStringLiteral("updateMetaInfo")))
        titles.append(args.at(0).toString());
    return titles;
}
