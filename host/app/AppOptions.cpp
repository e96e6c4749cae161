#include "host/app/AppOptions.h"

namespace {
bool takeValue(const QStringList& arguments, int& index, QString* value, QString* error)
{
    if (index + 1 >= arguments.size()) {
        *error = QStringLiteral("%1 needs a value").arg(arguments.at(index));
        return false;
    }
    *value = arguments.at(++index);
    return true;
}

bool isKeyValue(const QString& word)
{
    return !word.startsWith(QLatin1String("--")) && word.indexOf(QLatin1Char('=')) > 0;
}
} // namespace

bool AppOptions::parse(const QStringList& arguments, QString* error)
{
    for (int i = 0; i < arguments.size(); ++i) {
        const QString& word = arguments.at(i);
        if (word == QLatin1String("--data-dir")) {
            if (!takeValue(arguments, i, &dataDir, error))
                return false;
        } else if (word == QLatin1String("--journal")) {
            if (!takeValue(arguments, i, &journal, error))
                return false;
        } else if (word == QLatin1String("--log")) {
            if (!takeValue(arguments, i, &log, error))
                return false;
        } else if (word == QLatin1String("--script")) {
            if (!takeValue(arguments, i, &script, error))
                return false;
        } else if (word == QLatin1String("--quiet")) {
            quiet = true;
        } else if (word == QLatin1String("--action")) {
            QString name;
            if (!takeValue(arguments, i, &name, error))
                return false;
            hasAction = true;
            action = AM_ActionData(name);
            // The action's key=value pairs follow its name.
            while (i + 1 < arguments.size() && isKeyValue(arguments.at(i + 1))) {
                const QString pair = arguments.at(++i);
                const int equals = pair.indexOf(QLatin1Char('='));
                action.setValue(pair.left(equals), pair.mid(equals + 1));
            }
        } else if (word.startsWith(QLatin1String("--"))) {
            *error = QStringLiteral("unknown option %1").arg(word);
            return false;
        } else if (passedFile.isEmpty()) {
            passedFile = word;
        } else {
            *error = QStringLiteral("more than one file given: %1").arg(word);
            return false;
        }
    }
    return true;
}

QString AppOptions::usage()
{
    return QStringLiteral(
        "usage: mediaplayer [options] [FILE]\n"
        "  FILE                      the file passed to the player at creation\n"
        "  --action NAME key=value.. the launch action (e.g. PlayMediaInMediaPlayer Launcher=HomeScreen)\n"
        "  --data-dir DIR            the host platform's data folder (settings, media database)\n"
        "  --journal FILE            write the journal of every effect to FILE\n"
        "  --log FILE                write the library's trace lines to FILE instead of standard output\n"
        "  --script FILE|-           run a scenario script, then quit\n"
        "  --quiet                   do not print what is playing\n");
}
