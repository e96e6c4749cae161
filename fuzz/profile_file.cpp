// The host phone's profile file (HostProfileFile): the text a person edits
// in the data folder.
//
// Input: the file's bytes, as they would lie on disk.
//
// Besides not crashing, the reader must keep its contract, checked here:
// every bit it takes is a number the phone has (0..65535), every skipped
// line gives one warning, and the default profile it writes reads back
// unchanged and without a warning.

#include <QByteArray>

#include <cstddef>
#include <cstdint>

#include "fuzz/support/FuzzCheck.h"
#include "host/platform/phone/HostProfileFile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray text(reinterpret_cast<const char*>(data), qsizetype(size));
    const HostProfileFile::Content content = HostProfileFile::parse(text);
    for (auto it = content.flexBits.cbegin(); it != content.flexBits.cend(); ++it)
        fuzzCheck(it.key() >= 0 && it.key() <= 0xFFFF);
    fuzzCheck(content.warnings.size() <= text.count('\n') + 1);

    HostProfileFile::Content kept;
    kept.flexBits = content.flexBits;
    const HostProfileFile::Content again = HostProfileFile::parse(HostProfileFile::defaultText(kept));
    fuzzCheck(again.flexBits == kept.flexBits);
    fuzzCheck(again.warnings.isEmpty());
    return 0;
}
