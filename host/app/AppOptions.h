#pragma once
// The command line of the host application:
//   mediaplayer [--data-dir DIR] [--journal FILE] [--log FILE] [--quiet]
//               [--action NAME key=value ...] [--script FILE|-] [FILE]

#include <QString>
#include <QStringList>

#include "platform/AM_Action.h"

struct AppOptions {
    QString passedFile;     ///< the file handed to the window at creation
    bool hasAction = false; ///< --action given
    AM_ActionData action;   ///< the launch action
    QString dataDir;
    QString journal;
    QString log;
    QString script;         ///< "-" reads standard input
    bool quiet = false;     ///< no "Playing:" lines on the terminal

    /** Parses @p arguments (without the program name). On a bad command line
     *  returns false with a message in @p error. */
    bool parse(const QStringList& arguments, QString* error);
    static QString usage();
};
