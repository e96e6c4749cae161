#pragma once
// The library's interfaces are written in the phone toolkit's Qt 2 vocabulary.
// These aliases keep those names on Qt 6 so that signatures read as the
// platform documents them (slot and signal strings included: moc records the
// alias names, so "received(const QCString&,const QByteArray&)" connects).

#include <QByteArray>
#include <QEvent>
#include <QList>
#include <QString>

template <typename T>
using QValueList = QList<T>;

using QCString = QByteArray;

// Qt 2 carried user events as QCustomEvent; Qt 6 posts plain QEvents of a
// user type. Only the type is ever looked at.
using QCustomEvent = QEvent;

using Q_INT8 = qint8;
using Q_INT32 = qint32;
using Q_UINT32 = quint32;
