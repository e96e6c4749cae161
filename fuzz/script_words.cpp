// The host application's scenario-script reader: each line split into words
// (ScriptWords), the words read as typed payload arguments (PayloadBuilder)
// and, after the first word, as a display command (DisplayCommandParser).
//
// Input: UTF-8 text (bytes that are not UTF-8 read as U+FFFD), split at '\n'
// into script lines.
//
// Besides not crashing, the readers must keep their contracts, checked here:
// a failed call gives a reason, words written back quoted (with \" and \\)
// and split again are the same words, and a display command read is one the
// display can send (a mute of 0 or 1, a volume of 0 to 255).

#include <QStringList>

#include <cstddef>
#include <cstdint>

#include "fuzz/support/FuzzCheck.h"
#include "host/app/script/DisplayCommandParser.h"
#include "host/words/PayloadBuilder.h"
#include "host/words/ScriptWords.h"

namespace {

QString quoted(const QStringList& words)
{
    QStringList parts;
    for (QString word : words) {
        word.replace(QLatin1Char('\\'), QLatin1String("\\\\")).replace(QLatin1Char('"'), QLatin1String("\\\""));
        parts.append(QLatin1Char('"') + word + QLatin1Char('"'));
    }
    return parts.join(QLatin1Char(' '));
}

void checkDisplayCommand(const QStringList& words)
{
    DisplayCommand command;
    QString error;
    const bool read = DisplayCommandParser::parse(words, &command, &error);
    fuzzCheck(read == error.isEmpty());
    if (!read)
        return;
    if (command.kind == DisplayCommand::Kind::Mute)
        fuzzCheck(command.value == 0 || command.value == 1);
    if (command.kind == DisplayCommand::Kind::Volume)
        fuzzCheck(command.value >= 0 && command.value <= 255);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), qsizetype(size));
    for (const QString& line : text.split(QLatin1Char('\n'))) {
        QStringList words;
        QString error;
        if (!ScriptWords::split(line, &words, &error)) {
            fuzzCheck(!error.isEmpty());
            continue;
        }
        QStringList again;
        fuzzCheck(ScriptWords::split(quoted(words), &again, &error));
        fuzzCheck(again == words);

        QByteArray payload;
        error.clear();
        const bool built = PayloadBuilder::build(words, &payload, &error);
        fuzzCheck(built == error.isEmpty());

        checkDisplayCommand(words.mid(1));
    }
    return 0;
}
