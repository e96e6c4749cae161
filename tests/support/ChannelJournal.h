#pragma once
// The channel messages captured in the journal, as "MESSAGE HEX" lines (an
// empty payload leaves "MESSAGE " with nothing after the space), as standard
// strings so that a failed expectation prints them.

#include <QJsonObject>

#include <string>
#include <vector>

#include "host/platform/HostJournal.h"

using MessageLines = std::vector<std::string>;

inline MessageLines channelMessages(const QString& channel)
{
    MessageLines messages;
    for (const QJsonObject& line : HostJournal::captured()) {
        if (line.value("kind").toString() == "qcop" && line.value("channel").toString() == channel)
            messages.push_back((line.value("message").toString() + ' ' + line.value("data").toString()).toStdString());
    }
    return messages;
}
