#include "host/platform/media/metadata/MetadataResponseBuilder.h"

MetadataResponseBuilder::MetadataResponseBuilder(const MediaSearchResult& result,
                                                 const QList<MetadataSearchCandidateType>& candidates)
{
    const size_t fieldCount = size_t(candidates.size());
    m_fields.reserve(result.rows.size() * fieldCount);
    for (const MediaSearchRow& row : result.rows) {
        for (const MetadataSearchCandidateType type : candidates)
            m_fields.push_back(fieldOf(row, type));
    }
    m_infos.reserve(result.rows.size());
    for (size_t i = 0; i < result.rows.size(); ++i)
        m_infos.push_back(MetadataMediaInfo{int32_t(fieldCount), m_fields.data() + i * fieldCount});
    m_response = MetadataSearchMediaResponse{result.total, uint32_t(m_infos.size()),
                                             m_infos.empty() ? nullptr : m_infos.data()};
}

MetadataMediaField MetadataResponseBuilder::fieldOf(const MediaSearchRow& row, MetadataSearchCandidateType type)
{
    MetadataMediaField field{type, 0, {0}};
    if (type == METADATA_CANDIDATE_OBJECT_ID) {
        field.valueLength = sizeof(uint32_t);
        field.value.number = row.id;
        return field;
    }
    // QByteArray keeps its text NUL-terminated, also when empty.
    const QByteArray& text = type == METADATA_CANDIDATE_ALBUM ? row.album : row.path;
    field.valueLength = uint32_t(text.size()) + 1;
    field.value.text = text.constData();
    return field;
}
