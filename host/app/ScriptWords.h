#pragma once
// Splits one scenario-script line into words as a shell reads them: words
// are separated by spaces, double quotes let a word hold spaces (with \" and
// \\ inside quotes), and # outside quotes starts a comment.

#include <QString>
#include <QStringList>

class ScriptWords {
public:
    /** Returns false with a reason in @p error for an unterminated quote. */
    static bool split(const QString& line, QStringList* words, QString* error);
};
