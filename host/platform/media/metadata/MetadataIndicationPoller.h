#pragma once
// Brings one connection's change indications to its handler. While the
// connection is subscribed, it looks at the database's change log a few times
// a second (reading it only when something was committed since the last look)
// and calls the handler from the event loop, once per batch of changes: 3006
// when media objects changed, then 3008 for each changed group (update type 1
// when the group is gone, 2 when its members changed). It never calls from
// inside a writer's call, and never announces what is not yet committed.

#include <QObject>
#include <QSet>
#include <QString>
#include <QTimer>

#include <functional>
#include <optional>

#include "host/platform/media/database/MediaChanges.h"
#include "platform/Metadata.h"

class MediaDatabase;

class MetadataIndicationPoller : public QObject {
    Q_OBJECT
public:
    /** Gives the connection's database at the time of a look, or null when it has none. */
    using DatabaseSource = std::function<MediaDatabase*()>;

    /** How often the change log is looked at while subscribed. */
    static constexpr int kIntervalMs = 200;

    explicit MetadataIndicationPoller(DatabaseSource database, QObject* parent = nullptr);

    /** Called with each batch of changes before its indications are delivered to the
     *  handler. It returns the groups that are announced as changed on top of the batch's
     *  own: those whose members, as the client reads them, a change of media objects moved. */
    using DeliveryNotice = std::function<QList<quint32>(const MediaChanges&)>;
    void setDeliveryNotice(DeliveryNotice notice) { m_deliveryNotice = std::move(notice); }
    /** Sets the handler and its user data (the last set wins). */
    void setHandler(MetadataIndicationHandler handler, void* userData);
    /** Adds @p indications to the subscription; changes committed from now on are announced. */
    void subscribe(const QList<unsigned short>& indications);
    /** Forgets the handler and the subscription; nothing more is announced. */
    void cancel();
    bool isSubscribed() const { return !m_indications.isEmpty(); }
    /** Cancels and deletes the poller: at once, or, when its handler is running (and might
     *  have called this), once the handler has returned. */
    void retire();

private:
    void poll();
    /** Takes the database's present state as the point from which changes are announced. */
    void startFrom(MediaDatabase& database);
    void deliver(const MediaChanges& changes);
    void notify(unsigned short indication, void* data);

    DatabaseSource m_database;
    DeliveryNotice m_deliveryNotice;
    MetadataIndicationHandler m_handler = nullptr;
    void* m_userData = nullptr;    // not owned: the handler's
    QSet<unsigned short> m_indications;
    QTimer m_timer;
    QString m_databaseFile;        // the file that m_lastSequence counts in
    std::optional<qint64> m_lastSequence;
    MediaCommitStamp m_stamp;
    int m_deliveryDepth = 0;       // > 0 while a handler runs (it may run an event loop)
    bool m_isRetired = false;
};
