// The rows of the media objects' change log (MediaEntryChangeReader), as a
// reader finds them in the database file, where any program may have
// written them: numbers out of order, missing, repeated, ids out of range,
// half an album.
//
// Input: the place the reader knows (a byte: its number; a byte: its id),
// the limit (a byte), then rows of 6 bytes: number (2), id (2), album flags
// (1: bit 0 a key, bit 1 a name), album byte (1).
//
// Besides not crashing, the reader must keep its contract, checked here: it
// accepts only when the first row is the known place and every later number
// follows the one before, within the limit; and then it names each changed
// object exactly once, ascending.

#include <QByteArray>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <set>

#include "fuzz/support/FuzzCheck.h"
#include "fuzz/support/FuzzInput.h"
#include "host/platform/media/database/MediaEntryChangeReader.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FuzzInput input(data, size);
    const MediaLogPosition from{input.takeByte(), input.takeByte()};
    const int limit = input.takeByte();
    MediaEntryChangeReader reader(from, limit);
    bool isWellFormed = true;
    bool isFirst = true;
    qint64 last = from.sequence;
    int changes = 0;
    std::set<quint32> ids;
    while (!input.atEnd()) {
        MediaChangeLogRow row;
        row.sequence = qint64(input.takeUint16()) - 1;   // -1 reaches before the first place
        row.mediaId = qint64(input.takeUint16()) - 1;
        const uint8_t flags = input.takeByte();
        const QByteArray album = input.take(1);
        if (flags & 1)
            row.albumKey = album;
        if (flags & 2)
            row.album = album;
        if (isFirst) {
            isWellFormed = row.sequence == from.sequence && row.mediaId == from.mediaId;
        } else {
            isWellFormed = isWellFormed && row.sequence == last + 1 && row.mediaId > 0
                           && bool(flags & 1) == bool(flags & 2) && ++changes <= limit;
            ids.insert(quint32(row.mediaId));
        }
        last = row.sequence;
        isFirst = false;
        reader.add(row);
    }
    const std::optional<MediaEntryChanges> changed = reader.finish();
    fuzzCheck(changed.has_value() == (isWellFormed && !isFirst));
    if (changed) {
        fuzzCheck(std::is_sorted(changed->ids.begin(), changed->ids.end()));
        fuzzCheck(std::set<quint32>(changed->ids.begin(), changed->ids.end()) == ids);
        fuzzCheck(ids.size() == changed->ids.size());
        fuzzCheck(changed->last.sequence == last);
    }
    return 0;
}
