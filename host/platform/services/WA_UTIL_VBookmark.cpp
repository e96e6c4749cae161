#include "platform/WA_UTIL_VBookmark.h"

#include <QJsonArray>
#include <QJsonObject>

#include "host/platform/HostJournal.h"
#include "host/platform/services/HostBookmarkEditor.h"
#include "host/platform/services/HostBookmarkStore.h"
#include "host/platform/toolkit/HostDialogs.h"

bool WA_UTIL_VBookmark::editBookmark(const QString& bookmark)
{
    // The journal shows which bookmark was opened and what it held (null
    // when it is not a bookmark); at a display a person edits it, and the
    // line, written when the editor closes, adds whether it was saved.
    const std::optional<HostBookmark> stored = HostBookmarkStore::read(bookmark);
    QJsonObject line{{"kind", "service"}, {"call", "editBookmark"}, {"args", QJsonArray{bookmark}}};
    line.insert(QStringLiteral("bookmark"),
                stored ? QJsonValue(QJsonObject{{"title", stored->title}, {"url", stored->url}}) : QJsonValue());
    if (stored && HostDialogs::isInteractive()) {
        HostBookmarkEditor editor(*stored);
        line.insert(QStringLiteral("answer"), editor.exec() == QDialog::Accepted ? 1 : 0);
    }
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
