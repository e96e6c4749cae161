#include "host/words/ScriptWords.h"

bool ScriptWords::split(const QString& line, QStringList* words, QString* error)
{
    words->clear();
    QString word;
    bool inWord = false;
    bool inQuotes = false;
    for (int i = 0; i < line.size(); ++i) {
        const QChar c = line.at(i);
        if (inQuotes) {
            if (c == QLatin1Char('\\') && i + 1 < line.size()
                && (line.at(i + 1) == QLatin1Char('"') || line.at(i + 1) == QLatin1Char('\\'))) {
                word += line.at(++i);
            } else if (c == QLatin1Char('"')) {
                inQuotes = false;
            } else {
                word += c;
            }
        } else if (c == QLatin1Char('"')) {
            inQuotes = true;
            inWord = true;
        } else if (c == QLatin1Char('#')) {
            break;
        } else if (c.isSpace()) {
            if (inWord)
                words->append(word);
            word.clear();
            inWord = false;
        } else {
            word += c;
            inWord = true;
        }
    }
    if (inQuotes) {
        *error = QStringLiteral("unterminated double quote");
        return false;
    }
    if (inWord)
        words->append(word);
    return true;
}

QString ScriptWords::excerpt(const QString& word)
{
    const QString quoted = QStringLiteral("\"%1\"");
    if (word.size() <= kExcerptLength)
        return quoted.arg(word);
    int length = kExcerptLength;
    // Never half a character: a cut surrogate pair would print as garbage.
    if (word.at(length - 1).isHighSurrogate())
        --length;
    return quoted.arg(word.left(length) + QStringLiteral("...")) + QStringLiteral(" (%1 characters)").arg(word.size());
}
