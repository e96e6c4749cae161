#include "host/app/script/DisplayCommandParser.h"

#include <limits>

#include "host/words/ScriptWords.h"

namespace {

using Kind = DisplayCommand::Kind;

struct Entry {
    const char* name;
    Kind kind;
    enum Argument { None, Offset, OnOff, Level } argument;
};

const Entry kEntries[] = {
    {"play", Kind::Play, Entry::None},
    {"pause", Kind::Pause, Entry::None},
    {"stop", Kind::Stop, Entry::None},
    {"next", Kind::Next, Entry::None},
    {"previous", Kind::Previous, Entry::None},
    {"shift", Kind::Shift, Entry::Offset},
    {"shiftFinished", Kind::ShiftFinished, Entry::None},
    {"exit", Kind::Exit, Entry::None},
    {"mute", Kind::Mute, Entry::OnOff},
    {"volume", Kind::Volume, Entry::Level},
};

const Entry* find(const QString& name)
{
    for (const Entry& entry : kEntries) {
        if (name == QLatin1String(entry.name))
            return &entry;
    }
    return nullptr;
}

bool readArgument(const Entry& entry, const QString& word, int* value, QString* error)
{
    bool ok = false;
    switch (entry.argument) {
    case Entry::None:
        return true;
    case Entry::Offset:
        *value = word.toInt(&ok);
        if (!ok)
            *error = QStringLiteral("shift expects a whole number of milliseconds, not %1").arg(ScriptWords::excerpt(word));
        return ok;
    case Entry::OnOff:
        ok = word == QLatin1String("true") || word == QLatin1String("false");
        *value = word == QLatin1String("true") ? 1 : 0;
        if (!ok)
            *error = QStringLiteral("mute expects true or false, not %1").arg(ScriptWords::excerpt(word));
        return ok;
    case Entry::Level: {
        const int level = word.toInt(&ok);
        ok = ok && level >= 0 && level <= std::numeric_limits<unsigned char>::max();
        *value = level;
        if (!ok)
            *error = QStringLiteral("volume expects a level from 0 to 255, not %1").arg(ScriptWords::excerpt(word));
        return ok;
    }
    }
    return false;
}

} // namespace

bool DisplayCommandParser::parse(const QStringList& words, DisplayCommand* command, QString* error)
{
    if (words.isEmpty()) {
        *error = QStringLiteral("expects a command: play, pause, stop, next, previous, shift N, shiftFinished, "
                                "exit, mute true|false or volume N");
        return false;
    }
    const Entry* entry = find(words.first());
    if (!entry) {
        *error = QStringLiteral("unknown display command %1").arg(ScriptWords::excerpt(words.first()));
        return false;
    }
    const int wanted = entry->argument == Entry::None ? 1 : 2;
    if (words.size() != wanted) {
        *error = wanted == 1 ? QStringLiteral("%1 takes no argument").arg(words.first())
                             : QStringLiteral("%1 expects one argument").arg(words.first());
        return false;
    }
    int value = 0;
    if (!readArgument(*entry, words.value(1), &value, error))
        return false;
    command->kind = entry->kind;
    command->value = value;
    return true;
}
