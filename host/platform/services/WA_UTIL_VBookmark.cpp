#include "platform/WA_UTIL_VBookmark.h"

#include <QJsonArray>
#include <QJsonObject>

#include "host/platform/HostJournal.h"
#include "host/platform/services/HostBookmarkStore.h"

bool WA_UTIL_VBookmark::editBookmark(const QString& bookmark)
{
    // The host has no browser to edit in: the journal shows which bookmark
    // it would open and what it holds (null when it is not a bookmark).
    const std::optional<HostBookmark> stored = HostBookmarkStore::read(bookmark);
    QJsonObject line{{"kind", "service"}, {"call", "editBookmark"}, {"args", QJsonArray{bookmark}}};
    line.insert(QStringLiteral("bookmark"),
                stored ? QJsonValue(QJsonObject{{"title", stored->title}, {"url", stored->url}}) : QJsonValue());
    HostJournal::write(line);
    return stored.has_value();
}

bool WA_UTIL_VBookmark::addBookmark(const QString& title, const QString& url, QString& identity)
{
    identity = HostBookmarkStore::add(title, url);
    HostJournal::call(QStringLiteral("service"), QStringLiteral("addBookmark"),
                      QJsonArray{title.isNull() ? QJsonValue() : QJsonValue(title), url,
                                 identity.isNull() ? QJsonValue() : QJsonValue(identity)});
    return !identity.isNull();
}
