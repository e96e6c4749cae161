#include "tests/support/Journal.h"

#include <QFile>
#include <QJsonDocument>

namespace {

QString text(const QJsonObject& line, const char* key)
{
    return line.value(QLatin1String(key)).toString();
}

} // namespace

JournalLines Journal::captured()
{
    return HostJournal::captured();
}

JournalLines Journal::readFile(const QString& path)
{
    JournalLines lines;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return lines;
    for (const QByteArray& line : file.readAll().split('\n')) {
        if (!line.isEmpty())
            lines.append(QJsonDocument::fromJson(line).object());
    }
    return lines;
}

QStringList Journal::calls(const JournalLines& lines)
{
    QStringList calls;
    for (const QJsonObject& line : lines) {
        if (line.contains(QLatin1String("call")))
            calls.append(text(line, "kind") + QLatin1Char(':') + text(line, "call"));
    }
    return calls;
}

JournalLines Journal::linesOf(const JournalLines& lines, const QString& kind, const QString& call)
{
    JournalLines found;
    for (const QJsonObject& line : lines) {
        if (text(line, "kind") == kind && text(line, "call") == call)
            found.append(line);
    }
    return found;
}

QList<QJsonArray> Journal::argsOf(const JournalLines& lines, const QString& kind, const QString& call)
{
    QList<QJsonArray> args;
    for (const QJsonObject& line : linesOf(lines, kind, call))
        args.append(line.value(QLatin1String("args")).toArray());
    return args;
}

MessageLines Journal::callsWithArgs(const JournalLines& lines, const QStringList& kinds)
{
    MessageLines found;
    for (const QJsonObject& line : lines) {
        if ((kinds.isEmpty() || kinds.contains(text(line, "kind"))) && line.contains(QLatin1String("call")))
            found.push_back((text(line, "kind") + QLatin1Char(':') + text(line, "call") + QLatin1Char(' ')).toStdString()
                            + QJsonDocument(line.value(QLatin1String("args")).toArray()).toJson(QJsonDocument::Compact).toStdString());
    }
    return found;
}

MessageLines Journal::callsWithArgsMatching(const JournalLines& lines, const QRegularExpression& pattern)
{
    MessageLines found;
    for (const std::string& call : callsWithArgs(lines, {}))
        if (pattern.match(QString::fromStdString(call.substr(0, call.find(' ')))).hasMatch())
            found.push_back(call);
    return found;
}

QStringList Journal::dialogs(const JournalLines& lines)
{
    QStringList shown;
    for (const QJsonObject& line : lines) {
        if (text(line, "kind") == QLatin1String("dialog"))
            shown << text(line, "title") + QLatin1Char('|') + text(line, "text") + QLatin1Char('|')
                         + QString::number(line.value(QLatin1String("answer")).toInt());
    }
    return shown;
}

QStringList Journal::settingsWritten(const JournalLines& lines)
{
    QStringList writes;
    for (const QJsonObject& line : lines) {
        if (text(line, "kind") == QLatin1String("settings"))
            writes << text(line, "key") + QLatin1Char('=') + line.value(QLatin1String("value")).toVariant().toString();
    }
    return writes;
}

MessageLines channelMessages(const QString& channel, const QString& prefix)
{
    MessageLines found;
    for (const QJsonObject& line : Journal::captured()) {
        if (text(line, "kind") == QLatin1String("qcop") && text(line, "channel") == channel
            && text(line, "message").startsWith(prefix))
            found.push_back((text(line, "message") + QLatin1Char(' ') + text(line, "data")).toStdString());
    }
    return found;
}
