// A bookmark file of the host's bookmark store (HostBookmarkStore): bytes
// that lie in the data folder, where anything may have written them.
//
// Input: the file's bytes.
//
// Besides not crashing, the reader must keep its contract, checked here: a
// bookmark it reads has an address and no line breaks, and the file the
// store writes for it reads back as the same bookmark.

#include <QByteArray>

#include <cstddef>
#include <cstdint>

#include "fuzz/support/FuzzCheck.h"
#include "host/platform/services/HostBookmarkStore.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    const std::optional<HostBookmark> bookmark = HostBookmarkStore::parse(bytes);
    if (!bookmark)
        return 0;
    fuzzCheck(!bookmark->url.isEmpty());
    fuzzCheck(!bookmark->title.contains(QLatin1Char('\n')) && !bookmark->url.contains(QLatin1Char('\n')));
    const std::optional<HostBookmark> again =
        HostBookmarkStore::parse(HostBookmarkStore::format(bookmark->title, bookmark->url));
    fuzzCheck(again.has_value());
    fuzzCheck(again->url == bookmark->url);
    fuzzCheck(again->title == (bookmark->title.isEmpty() ? bookmark->url : bookmark->title));
    return 0;
}
