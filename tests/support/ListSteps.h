#pragma once
// A walk over a play list compared as one value.

#include <QStringList>

#include "lists/MP_ListInterface.h"

/**
 * Where @p list stands after each step, as "<4>": the index, '<' when it has
 * a previous entry and '>' when it has a next one. A step skips by a count
 * ("+3", "-9") or moves to a position ("@5").
 */
inline QString listSteps(MP_ListInterface& list, const QStringList& steps)
{
    QStringList reached;
    for (const QString& step : steps) {
        if (step.startsWith('@'))
            list.moveTo(step.mid(1).toInt());
        else
            list.skipSteps(step.toInt());
        reached << QStringLiteral("%1%2%3")
                       .arg(list.hasPrevious() ? "<" : "")
                       .arg(list.getCurrentIndex())
                       .arg(list.hasNext() ? ">" : "");
    }
    return reached.join(' ');
}
