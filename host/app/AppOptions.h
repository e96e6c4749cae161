#pragma once
// The command line of the host application:
//   mediaplayer [--data-dir DIR] [--journal FILE] [--log FILE] [--quiet] [--mpris]
//               [--action NAME key=value ...] [--folder PATH] [--lang LANG] [--output media|clock]
//               [--script FILE|-] [FILE]

#include <QString>
#include <QStringList>

#include "host/engine/HostOutputChoice.h"
#include "platform/AM_Action.h"

/** How the application ends; --help lists them. */
enum ExitStatus {
    ExitPlayed = 0,        ///< played to the end, quit, or the script ran through
    ExitBadScript = 2,     ///< a script line was bad
    ExitNothingToPlay = 3, ///< without a display, the run ended with nothing (more) to play
    ExitBadUsage = 64,     ///< a bad command line
    ExitCannotLoad = 69,   ///< the library or its entry points could not be loaded
};

struct AppOptions {
    QString passedFile;     ///< the file handed to the window at creation
    bool hasAction = false; ///< --action given
    AM_ActionData action;   ///< the launch action
    QString dataDir;
    QString journal;
    QString log;
    QString script;         ///< "-" reads standard input
    QString folder;         ///< --folder: a folder, or a file to start its folder from
    QString language;       ///< --lang: null when not given (then $LANG decides)
    bool quiet = false;     ///< no "Playing:" lines on the terminal
    bool mpris = false;     ///< --mpris: run the media-controls bridge beside the player
    bool help = false;      ///< --help: print the usage and end
    /** --output: what the engine plays through; by default the media output
     *  in real time and the clock output under "clock manual". */
    HostOutputKind output = HostOutputKind::Automatic;

    /** Parses @p arguments (without the program name). On a bad command line
     *  returns false with a message in @p error. */
    bool parse(const QStringList& arguments, QString* error);
    static QString usage();
};
