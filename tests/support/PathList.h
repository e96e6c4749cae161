#pragma once
// A list over fixed paths for client and engine tests: no files behind it, a
// removal that takes nothing out, and plain bounds unless it repeats, when
// it wraps at both ends.

#include <QStringList>

#include "lists/MP_ListInterface.h"

class PathList : public MP_ListInterface {
public:
    explicit PathList(QStringList items, bool wraps = false) : paths(std::move(items)), repeat(wraps) {}
    unsigned int count() override { return unsigned(paths.size()); }
    bool hasNext() override { return !paths.isEmpty() && (repeat || current + 1 < paths.size()); }
    bool hasPrevious() override { return !paths.isEmpty() && (repeat || current > 0); }
    QString getCurrent() override { return paths.value(current); }
    QString getItem(int index) override { return paths.value(index); }
    int getCurrentIndex() override { return current; }
    void skipSteps(int steps) override
    {
        const int size = int(paths.size());
        current = repeat && size ? ((current + steps) % size + size) % size : current + steps;
    }
    void moveTo(int index) override { current = index; }
    bool removeItem(int) override { return false; }
    QByteArray* getReservedData() override { return nullptr; }

    QStringList paths;
    int current = 0;
    bool repeat;
};
