// Loaded before the host platform (LD_PRELOAD) into the application, this
// library stands between the main-window library and the metadata service:
// every record the library hands to the service in the fixed scenario
// (payload_scenario.mps) is written, as a line, to the file named by
// MP_RECORD_TAP, and then handed on unchanged. A call the scenario comes to
// make needs a stand-in here too.
//
// A line shows the record in its 32-bit layout, word by word as the bytes lie
// in memory (little-endian), a pointer as "ptr" or, when null, as zeros; then
// what each pointer reaches. Built for a 32-bit processor, the record's own
// bytes must be exactly that layout (with the pointers' values), else the line
// says "layout differs" with the bytes it found.

#include <dlfcn.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "platform/Metadata.h"

namespace {

std::string hexOf(const void* data, size_t size)
{
    static const char digits[] = "0123456789abcdef";
    std::string hex;
    for (size_t i = 0; i < size; ++i) {
        const auto byte = static_cast<const unsigned char*>(data)[i];
        hex += digits[byte >> 4];
        hex += digits[byte & 15];
    }
    return hex;
}

/** A 32-bit field's bytes as they lie in memory (on the phone and on a PC alike, little-endian). */
template <typename Field>
std::string wordHex(const Field& field)
{
    static_assert(sizeof(Field) == 4, "a word is 32 bits");
    return hexOf(&field, 4);
}

/** One record's line: its words in order, and the bytes its pointers reach. */
class RecordImage {
public:
    RecordImage(const std::string& call, const void* record, size_t size)
        : m_line(call), m_record(record), m_size(size) {}

    template <typename Field>
    RecordImage& word(const Field& field)
    {
        return add(wordHex(field), wordHex(field));
    }

    /** A pointer word; @p reached is what it points to (left out when null). */
    RecordImage& pointer(const char* name, const void* value, const std::string& reached)
    {
        if (value)
            m_reached += std::string(" ") + name + "=" + reached;
        return add(value ? "ptr" : "00000000", wordHex(uint32_t(reinterpret_cast<uintptr_t>(value))));
    }

    void write() const
    {
        std::string line = m_line + m_reached;
        // On a 32-bit processor the record in memory is the layout itself.
        const std::string found = hexOf(m_record, m_size);
        if (sizeof(void*) == 4 && found != m_layout)
            line += " layout differs: " + found;
        if (FILE* file = std::fopen(std::getenv("MP_RECORD_TAP") ? std::getenv("MP_RECORD_TAP") : "/dev/null", "a")) {
            std::fprintf(file, "%s\n", line.c_str());
            std::fclose(file);
        }
    }

private:
    RecordImage& add(const std::string& shown, const std::string& bytes)
    {
        m_line += " " + shown;
        m_layout += bytes;
        return *this;
    }

    std::string m_line;
    const void* m_record;
    size_t m_size;
    std::string m_layout;  ///< the words' bytes as they lie in memory
    std::string m_reached;
};

std::string text(const char* value)
{
    return value ? hexOf(value, std::strlen(value) + 1) : std::string();
}

template <typename Item>
std::string items(const Item* first, uint32_t count)
{
    return first ? hexOf(first, sizeof(Item) * count) : std::string();
}

std::string filters(const MetadataSearchFilter* filters, uint32_t count)
{
    std::string hex;
    for (uint32_t i = 0; filters && i < count; ++i) {
        const MetadataSearchFilter& filter = filters[i];
        hex += (i ? "," : "") + wordHex(filter.type) + wordHex(filter.op) + wordHex(filter.valueLength)
               + (filter.value ? ":" + hexOf(filter.value, filter.valueLength) : std::string(":null"));
    }
    return hex;
}

void writeSearch(const char* call, const MetadataSearchMediaRequest& request)
{
    RecordImage(call, &request, sizeof request)
        .word(request.listTypeCount)
        .pointer("listTypes", request.listTypes, items(request.listTypes, request.listTypeCount))
        .word(request.filterCount)
        .pointer("filters", request.filters, filters(request.filters, request.filterCount))
        .word(request.sortCount)
        .pointer("sort", request.sort, items(request.sort, request.sortCount))
        .word(request.storageLocation)
        .word(request.reserved1)
        .word(request.groupingFlag)
        .word(request.candidateCount)
        .pointer("candidates", request.candidates, items(request.candidates, request.candidateCount))
        .word(request.resultCount)
        .word(request.firstIndex)
        .word(request.reserved2)
        .write();
}

/** The service's own definition of @p standIn, this library's function of that name. */
template <typename Function>
Function* next(Function& /*standIn*/, const char* symbol)
{
    auto* function = reinterpret_cast<Function*>(dlsym(RTLD_NEXT, symbol));
    if (!function) {
        std::fprintf(stderr, "record tap: the metadata service has no %s\n", symbol);
        std::abort();
    }
    return function;
}

} // namespace

int saveLastPlayedList(LastPlayedListRecord* record)
{
    static auto* service = next(saveLastPlayedList, "_Z18saveLastPlayedListP20LastPlayedListRecord");
    if (record) {
        RecordImage("saveLastPlayedList", record, sizeof *record)
            .word(record->listType)
            .word(record->artistLength)
            .pointer("artist", record->artist, text(record->artist))
            .word(record->albumLength)
            .pointer("album", record->album, text(record->album))
            .word(record->composerLength)
            .pointer("composer", record->composer, text(record->composer))
            .word(record->genreLength)
            .pointer("genre", record->genre, text(record->genre))
            .word(record->reserved1[0])
            .word(record->reserved1[1])
            .word(record->groupObjectId)
            .word(record->storageLocation)
            .word(record->firstIndex)
            .word(record->reserved2[0])
            .word(record->reserved2[1])
            .word(record->handler)
            .write();
    }
    return service(record);
}

int metadataSearchMedia(unsigned int handle, const MetadataSearchMediaRequest* request,
                        MetadataSearchMediaCallback callback, void* userData)
{
    static auto* service = next(metadataSearchMedia,
        "_Z19metadataSearchMediajPK26MetadataSearchMediaRequestPFvPvP27MetadataSearchMediaResponseES2_");
    if (request)
        writeSearch("metadataSearchMedia", *request);
    return service(handle, request, callback, userData);
}

int metadataBackupSearchedMedias(unsigned int handle, const MetadataSearchMediaRequest* request)
{
    static auto* service = next(metadataBackupSearchedMedias,
        "_Z28metadataBackupSearchedMediasjPK26MetadataSearchMediaRequest");
    if (request)
        writeSearch("metadataBackupSearchedMedias", *request);
    return service(handle, request);
}

int metadataSearchMusicFile(unsigned int handle, const MetadataSearchMusicFileRequest* request, int requestCount,
                            MetadataSearchMusicFileCallback callback, void* userData)
{
    static auto* service = next(metadataSearchMusicFile,
        "_Z23metadataSearchMusicFilejPK30MetadataSearchMusicFileRequestiPFvPvP31MetadataSearchMusicFileResponseES2_");
    if (request) {
        RecordImage("metadataSearchMusicFile requests=" + std::to_string(requestCount), request, sizeof *request)
            .word(request->filterCount)
            .pointer("filters", request->filters, filters(request->filters, request->filterCount))
            .word(request->storageLocation)
            .word(request->candidateCount)
            .pointer("candidates", request->candidates, items(request->candidates, request->candidateCount))
            .word(request->resultCount)
            .word(request->firstIndex)
            .write();
    }
    return service(handle, request, requestCount, callback, userData);
}

int metadataAddItemsIntoGroup(unsigned int handle, const MetadataAddItemsRecord* record, int* status)
{
    static auto* service = next(metadataAddItemsIntoGroup,
        "_Z25metadataAddItemsIntoGroupjPK22MetadataAddItemsRecordPi");
    if (record) {
        RecordImage("metadataAddItemsIntoGroup", record, sizeof *record)
            .word(record->reserved1)
            .word(record->groupId)
            .word(record->reserved2)
            .word(record->count)
            .pointer("items", record->items, items(record->items, record->count))
            .write();
    }
    return service(handle, record, status);
}
