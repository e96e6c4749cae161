#pragma once
// Lays a search result out as the word records a search callback reads:
// one media-info record per entry, its values in the order of the request's
// candidates. The records point into the result, which must outlive them.

#include <QList>

#include <vector>

#include "host/platform/media/database/MediaSearchResult.h"
#include "platform/Metadata.h"

class MetadataResponseBuilder {
public:
    MetadataResponseBuilder(const MediaSearchResult& result, const QList<MetadataSearchCandidateType>& candidates);
    MetadataResponseBuilder(const MetadataResponseBuilder&) = delete;
    MetadataResponseBuilder& operator=(const MetadataResponseBuilder&) = delete;

    /** The response; valid while this builder and the result live. */
    MetadataSearchMediaResponse* response() { return &m_response; }

private:
    static MetadataMediaField fieldOf(const MediaSearchRow& row, MetadataSearchCandidateType type);

    std::vector<MetadataMediaField> m_fields;
    std::vector<MetadataMediaInfo> m_infos;
    MetadataSearchMediaResponse m_response;
};
