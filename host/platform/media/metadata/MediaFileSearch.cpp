#include "host/platform/media/metadata/MediaFileSearch.h"

#include <algorithm>

#include "host/platform/phone/HostStorage.h"
#include "host/platform/media/database/MediaDatabase.h"
#include "host/platform/media/database/MediaRecord.h"

namespace {

constexpr uint32_t kSummaryWords = sizeof(MetadataMediaSummary) / sizeof(uint32_t);

} // namespace

std::optional<MediaFileSearch> MediaFileSearch::read(const MetadataSearchMusicFileRequest& request, int storageCount,
                                                     QString* error)
{
    if (request.filterCount == 0 || !request.filters) {
        *error = QStringLiteral("expects path filters, got %1%2")
                     .arg(request.filterCount)
                     .arg(request.filters ? "" : " and no filter array");
        return std::nullopt;
    }
    if (request.candidateCount > 0 && !request.candidates) {
        *error = QStringLiteral("%1 candidates but no candidate array").arg(request.candidateCount);
        return std::nullopt;
    }
    if (request.resultCount < 0 || request.firstIndex < 0) {
        *error = QStringLiteral("negative window (first %1, count %2)").arg(request.firstIndex).arg(request.resultCount);
        return std::nullopt;
    }
    MediaFileSearch search;
    for (uint32_t i = 0; i < request.filterCount; ++i) {
        const MetadataSearchFilter& filter = request.filters[i];
        if (filter.type != METADATA_FILTER_FILE_PATH || filter.op != METADATA_OPERATOR_EQUAL) {
            *error = QStringLiteral("filter %1 is type %2 with operator %3, not a path that equals")
                         .arg(i)
                         .arg(uint32_t(filter.type))
                         .arg(uint32_t(filter.op));
            return std::nullopt;
        }
        const auto* text = static_cast<const char*>(filter.value);
        if (!text || filter.valueLength == 0 || text[filter.valueLength - 1] != '\0') {
            *error = QStringLiteral("filter %1 has no NUL-terminated path (length %2)").arg(i).arg(filter.valueLength);
            return std::nullopt;
        }
        search.m_paths.append(QByteArray(text, int(qstrnlen(text, filter.valueLength - 1))));
    }
    // Each filter names one file, so the filters select any of their paths
    // (every filter of a media search must hold; two paths would find nothing).
    search.m_storage = HostStorage::selectedStorage(request.storageLocation, storageCount);
    search.m_firstIndex = request.firstIndex;
    search.m_resultCount = request.resultCount;
    return search;
}

MediaFileSearchResult MediaFileSearch::run(MediaDatabase& database) const
{
    std::vector<MediaRecord> found;
    for (const QByteArray& path : m_paths) {
        std::optional<MediaRecord> record = database.mediaByPath(QString::fromUtf8(path));
        const bool isSelected = record && (!m_storage || record->storage == *m_storage);
        const bool isNew = record && std::none_of(found.cbegin(), found.cend(), [&](const MediaRecord& other) {
                               return other.id == record->id;
                           });
        if (isSelected && isNew)
            found.push_back(std::move(*record));
    }
    std::sort(found.begin(), found.end(), [](const MediaRecord& a, const MediaRecord& b) { return a.id < b.id; });

    MediaFileSearchResult result;
    result.total = quint32(found.size());
    const size_t end = std::min(found.size(), size_t(m_firstIndex) + size_t(m_resultCount));
    for (size_t i = size_t(m_firstIndex); i < end; ++i)
        result.entries.push_back(summaryOf(found[i]));
    return result;
}

MetadataMediaSummary MediaFileSearch::summaryOf(const MediaRecord& record)
{
    MetadataMediaSummary summary;
    summary.objectId = record.id;
    summary.mediaKind = uint32_t(record.kind);
    summary.wordCount = kSummaryWords;
    summary.storageLocation = record.storage;
    summary.createFlag = record.createdBy;
    summary.buyFlag = record.buy ? 1 : 0;
    summary.trackNumber = uint32_t(std::max(record.track, 0));
    summary.reserved = 0;
    return summary;
}
