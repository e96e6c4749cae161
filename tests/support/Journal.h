#pragma once
// Queries over journal lines, for the journal a test captures in memory and
// for the journal file of a program a test runs. Lists of standard strings
// print readably when an expectation fails.

#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QRegularExpression>
#include <QStringList>

#include <string>
#include <vector>

#include "host/platform/HostJournal.h"

using JournalLines = QList<QJsonObject>;
using MessageLines = std::vector<std::string>;

namespace Journal {

/** The lines captured in memory since the capture started. */
JournalLines captured();
/** The lines of a journal file, one JSON object a line; none when it cannot be read. */
JournalLines readFile(const QString& path);

/** "kind:call" of every line that records a call, in order. */
QStringList calls(const JournalLines& lines);
/** The lines of one kind with one call name. */
JournalLines linesOf(const JournalLines& lines, const QString& kind, const QString& call);
/** The args of the lines of one kind and call, in order. */
QList<QJsonArray> argsOf(const JournalLines& lines, const QString& kind, const QString& call);
/** "kind:call [args]" of every line that records a call, of @p kinds (empty: any), args as compact JSON. */
MessageLines callsWithArgs(const JournalLines& lines, const QStringList& kinds);
/** callsWithArgs() of the lines whose "kind:call" matches @p pattern. */
MessageLines callsWithArgsMatching(const JournalLines& lines, const QRegularExpression& pattern);
/** "title|text|answer" of every dialog shown. */
QStringList dialogs(const JournalLines& lines);
/** "KEY=VALUE" of every setting written, in order. */
QStringList settingsWritten(const JournalLines& lines);

} // namespace Journal

/** "MESSAGE HEX" of the captured channel messages sent on @p channel whose names begin
 *  with @p prefix (an empty payload leaves "MESSAGE " with nothing after the space). */
MessageLines channelMessages(const QString& channel, const QString& prefix = QString());
