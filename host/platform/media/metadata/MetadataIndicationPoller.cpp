#include "host/platform/media/metadata/MetadataIndicationPoller.h"

#include <algorithm>

#include "host/platform/media/database/MediaDatabase.h"

MetadataIndicationPoller::MetadataIndicationPoller(DatabaseSource database, QObject* parent)
    : QObject(parent), m_database(std::move(database))
{
    m_timer.setInterval(kIntervalMs);
    connect(&m_timer, &QTimer::timeout, this, &MetadataIndicationPoller::poll);
}

void MetadataIndicationPoller::setHandler(MetadataIndicationHandler handler, void* userData)
{
    m_handler = handler;
    m_userData = userData;
}

void MetadataIndicationPoller::subscribe(const QList<unsigned short>& indications)
{
    if (m_isRetired)
        return;
    if (!isSubscribed()) {
        if (MediaDatabase* database = m_database())
            startFrom(*database);
        else
            m_lastSequence.reset();
    }
    for (const unsigned short indication : indications)
        m_indications.insert(indication);
    if (isSubscribed())
        m_timer.start();
}

void MetadataIndicationPoller::cancel()
{
    m_timer.stop();
    m_indications.clear();
    m_handler = nullptr;
    m_userData = nullptr;
}

void MetadataIndicationPoller::retire()
{
    cancel();
    m_isRetired = true;
    if (m_deliveryDepth == 0)
        delete this;
}

void MetadataIndicationPoller::startFrom(MediaDatabase& database)
{
    // The stamp before the sequence: a commit between the two is then
    // looked for again at the next look rather than missed.
    m_stamp = database.commitStamp();
    m_lastSequence = database.latestChange();
    m_databaseFile = database.fileName();
}

void MetadataIndicationPoller::poll()
{
    MediaDatabase* database = m_database();
    // Inside a transaction the change log shows changes not yet committed.
    if (!database || database->isInTransaction())
        return;
    if (!m_lastSequence || database->fileName() != m_databaseFile) {
        startFrom(*database);
        return;
    }
    const MediaCommitStamp stamp = database->commitStamp();
    if (stamp == m_stamp)
        return;
    m_stamp = stamp;
    const std::optional<MediaChanges> changes = database->changesSince(*m_lastSequence);
    if (!changes)
        return;
    // Moved on before the handler runs: a handler that runs an event loop
    // (a modal dialog) must not get the same batch again from a nested look.
    m_lastSequence = changes->lastSequence;
    deliver(*changes);
}

void MetadataIndicationPoller::deliver(const MediaChanges& changes)
{
    ++m_deliveryDepth;
    QList<MediaGroupChange> groups = changes.groups;
    if (m_deliveryNotice && m_handler && (changes.isMediaChanged || !changes.groups.isEmpty())) {
        for (const quint32 moved : m_deliveryNotice(changes)) {
            const bool isListed = std::any_of(groups.cbegin(), groups.cend(),
                                              [moved](const MediaGroupChange& change) { return change.groupId == moved; });
            if (!isListed)
                groups.append(MediaGroupChange{moved, false});
        }
    }
    if (changes.isMediaChanged)
        notify(METADATA_INDICATION_CONTENT_CHANGED, nullptr);
    for (const MediaGroupChange& change : groups) {
        MetadataGroupUpdatedIndication indication{
            change.groupId, change.isDeleted ? METADATA_GROUP_DELETED : METADATA_GROUP_MEMBERS_CHANGED};
        notify(METADATA_INDICATION_GROUP_CHANGED, &indication);
    }
    --m_deliveryDepth;
    // Retired by a handler: deleted from the event loop, which is where this
    // look came from, once everything above it on the stack has returned.
    if (m_isRetired && m_deliveryDepth == 0)
        deleteLater();
}

void MetadataIndicationPoller::notify(unsigned short indication, void* data)
{
    // Read anew before each call: an earlier call may have changed the
    // handler or cancelled the subscription.
    if (!m_handler || !m_indications.contains(indication))
        return;
    const MetadataIndicationHandler handler = m_handler;
    handler(m_userData, indication, data);
}
