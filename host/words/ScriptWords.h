#pragma once
// Splits one scenario-script line into words as a shell reads them: words
// are separated by spaces, double quotes let a word hold spaces (with \" and
// \\ inside quotes), and # outside quotes starts a comment.

#include <QString>
#include <QStringList>

class ScriptWords {
public:
    /** Returns false with a reason in @p error for an unterminated quote.
     *  Takes any text (the words of a line of any length and content). */
    static bool split(const QString& line, QStringList* words, QString* error);

    /** @p word in double quotes for a message: whole up to kExcerptLength
     *  characters, else its first ones, "..." and its length, so that a
     *  line of megabytes does not come back whole in its error. */
    static QString excerpt(const QString& word);
    static constexpr int kExcerptLength = 80;
};
