#include "host/platform/services/addrbk/HostAddressBook.h"

#include <QJsonArray>

#include "host/platform/HostJournal.h"

namespace {

void journal(const char* call, const QJsonArray& args)
{
    HostJournal::call(QStringLiteral("service"), QLatin1String(call), args);
}

QJsonValue textOrNull(const QString& text)
{
    return text.isNull() ? QJsonValue() : QJsonValue(text);
}

} // namespace

int HostAddressBook::addToNewContact(int kind, const QString& path, int option, int flags, const QString& name)
{
    journal("addToNewContact", {kind, path, option, flags, textOrNull(name)});
    return 1;
}

int HostAddressBook::showContacts(int flags)
{
    journal("showContacts", {flags});
    return 1;
}

int HostAddressBook::pickContact(int flags)
{
    journal("pickContact", {flags});
    return 1;
}

int HostAddressBook::addToExistingContact(int kind, const QString& path, int option, int flags)
{
    journal("addToExistingContact", {kind, path, option, flags});
    return 1;
}

ADDRBK_UI* getAddrbkUI()
{
    // One object for the library's life: the caller never deletes it, and it
    // goes with the library when the last user closes it.
    static HostAddressBook book;
    journal("getAddrbkUI", {});
    return &book;
}
