#include "host/app/AppOptions.h"

#include <QFileInfo>

#include "host/words/ScriptWords.h"

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

bool isFileOrAddress(const QString& word)
{
    return QFileInfo::exists(word) || word.contains(QLatin1String("://"));
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
        } else if (word == QLatin1String("--folder")) {
            if (!takeValue(arguments, i, &folder, error))
                return false;
        } else if (word == QLatin1String("--lang")) {
            if (!takeValue(arguments, i, &language, error))
                return false;
        } else if (word == QLatin1String("--output")) {
            QString name;
            if (!takeValue(arguments, i, &name, error))
                return false;
            if (name == QLatin1String("media")) {
                output = HostOutputKind::Media;
            } else if (name == QLatin1String("clock")) {
                output = HostOutputKind::Clock;
            } else {
                *error = QStringLiteral("--output is media or clock, not %1").arg(ScriptWords::excerpt(name));
                return false;
            }
        } else if (word == QLatin1String("--quiet")) {
            quiet = true;
        } else if (word == QLatin1String("--mpris")) {
            mpris = true;
        } else if (word == QLatin1String("--help") || word == QLatin1String("-h")) {
            help = true;
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
            // A FILE may follow the pairs; a word that is no file there is far more
            // likely a pair without its "=" than a file that is gone.
            if (i + 1 < arguments.size() && !arguments.at(i + 1).startsWith(QLatin1Char('-'))
                && !isFileOrAddress(arguments.at(i + 1))) {
                // An action name of ordinary length is shown as typed, unquoted; a
                // longer one is shortened as any word is, so that a pasted megabyte
                // does not come back whole.
                const QString shownName =
                    name.size() <= ScriptWords::kExcerptLength ? name : ScriptWords::excerpt(name);
                *error = QStringLiteral("--action %1: %2 is no key=value pair, nor a file")
                             .arg(shownName, ScriptWords::excerpt(arguments.at(i + 1)));
                return false;
            }
        } else if (word.startsWith(QLatin1String("--"))) {
            *error = QStringLiteral("unknown option %1").arg(ScriptWords::excerpt(word));
            return false;
        } else if (passedFile.isEmpty()) {
            passedFile = word;
        } else {
            *error = QStringLiteral("more than one file given: %1").arg(ScriptWords::excerpt(word));
            return false;
        }
    }
    // Each names what plays first; taking one silently would surprise.
    if (!folder.isEmpty() && (!passedFile.isEmpty() || hasAction)) {
        *error = QStringLiteral("--folder, --action and FILE each name what to play; give one");
        return false;
    }
    return true;
}

QString AppOptions::usage()
{
    return QStringLiteral(
        "usage: mediaplayer [options] [FILE]\n"
        "  FILE                      the file passed to the player at creation (no play list file)\n"
        "  --action NAME key=value.. the launch action (e.g. PlayMediaInMediaPlayer Launcher=HomeScreen);\n"
        "                            a word after its pairs is a FILE that exists, or an address\n"
        "  --data-dir DIR            the host platform's data folder (settings, media database)\n"
        "  --journal FILE            write the journal of every effect to FILE (emptied first)\n"
        "  --log FILE                write the library's trace lines to FILE instead of standard output\n"
        "  --folder PATH             play the media files of a folder in name order (PATH a folder:\n"
        "                            from its first audio or video file; PATH a file: from that file)\n"
        "  --script FILE|-           run a scenario script, then quit\n"
        "  --lang LANG               the language of the texts (\"de\"; \"en\" is built in); without it\n"
        "                            the language of $LANG, English when there is no translation\n"
        "  --output media|clock      media: decode and play (heard; silent without a sound device);\n"
        "                            clock: play on the engine's clock, nothing decoded. Without it:\n"
        "                            media, and clock while a script's clock is manual\n"
        "  --quiet                   do not print what is playing\n"
        "  --mpris                   offer the player to the desktop's media controls (MPRIS) through\n"
        "                            mp-mpris beside this program, while the player runs\n"
        "  --help                    print this and end\n"
        "Without a display (none at all, or QT_QPA_PLATFORM=offscreen or minimal) the player ends\n"
        "when nothing more will play, and says why on standard error.\n"
        "Environment:\n"
        "  MP_DATA_DIR        the data folder when --data-dir is not given (else\n"
        "                     $XDG_DATA_HOME/mediaplayer-host, ~/.local/share/mediaplayer-host)\n"
        "  MP_JOURNAL         the journal's file when --journal is not given\n"
        "  MP_DATA_READ_ONLY  set, and not 0: use the data folder read-only, saving nothing\n"
        "  MP_LIBRARY         another main-window library file to load\n"
        "  MP_QCOP_LOCAL      1: channel messages stay in this process (no D-Bus)\n"
        "  MP_EMULATOR        the command that runs this tree's programs (mp-mpris) when\n"
        "                     they are built for another processor\n"
        "Exit status:\n"
        "  0   played to the end, or quit; with --script: every line ran\n"
        "  1   a termination request whose orderly end did not finish within 10 s\n"
        "  2   a script line was bad (FILE:LINE: names it)\n"
        "  3   without a display: nothing to play (an unknown action, nothing to resume, an empty\n"
        "      list, a file that cannot be played, a list prepared without being started)\n"
        "  64  a bad command line\n"
        "  69  the library cannot be loaded\n");
}
