#pragma once
// A list over fixed paths for client tests: plain bounds, no files behind it,
// and a removal that takes nothing out.

#include <QStringList>

#include "lists/MP_ListInterface.h"

class PathList : public MP_ListInterface {
public:
    explicit PathList(QStringList items) : paths(std::move(items)) {}
    unsigned int count() override { return unsigned(paths.size()); }
    bool hasNext() override { return current + 1 < paths.size(); }
    bool hasPrevious() override { return current > 0; }
    QString getCurrent() override { return paths.value(current); }
    QString getItem(int index) override { return paths.value(index); }
    int getCurrentIndex() override { return current; }
    void skipSteps(int steps) override { current += steps; }
    void moveTo(int index) override { current = index; }
    bool removeItem(int) override { return false; }
    QByteArray* getReservedData() override { return nullptr; }

    QStringList paths;
    int current = 0;
};
