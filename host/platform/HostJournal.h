#pragma once
// The journal: one JSON object per line recording every effect that leaves
// the library (channel messages, action records, dialogs, engine calls and
// reports, settings and metadata writes, files, services). It goes to the
// file named by the MP_JOURNAL environment variable; without it nothing is
// written. Tests can also capture lines in memory.
//
// Fields: every line has "kind". A call has "call" and "args" (an array in
// the order of the operation's signature); a channel message has "channel",
// "message" and "data" (hex); a settings write "app", "group", "key",
// "value"; a dialog "class", "type", "title", "text", "answer".

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QString>

class HostJournal {
public:
    /** Writes one line as it stands. */
    static void write(const QJsonObject& line);
    /** {"kind": kind, "call": call, "args": args} */
    static void call(const QString& kind, const QString& call, const QJsonArray& args = {});
    /** {"kind":"qcop","channel","message","data": hex} */
    static void qcop(const QByteArray& channel, const QByteArray& message, const QByteArray& data);
    /** {"kind":"settings","app","group","key","value"} */
    static void settings(int app, const QString& group, const QString& key, const QJsonValue& value);
    /** {"kind":"dialog","class","type","title","text","answer"}, and "icon" when @p icon is not empty */
    static void dialog(const QString& className, int type, const QString& title, const QString& text, int answer,
                       const QString& icon = QString());

    /** Starts keeping every line in memory as well (tests). Clears what was kept. */
    static void startCapture();
    /** The lines kept since startCapture(); keeps capturing. */
    static QList<QJsonObject> captured();
    /** Stops keeping lines and forgets them. */
    static void stopCapture();

    /** Flushes and closes the journal file (it reopens on the next write). */
    static void close();
};
