// What `qcop --listen` prints for a message from another process: any
// message name and any payload bytes.
//
// Input: byte N, then N bytes of message name, then the payload (the rest).

#include <QByteArray>

#include <cstddef>
#include <cstdint>

#include "host/tools/qcop/PayloadDecoder.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size == 0)
        return 0;
    const size_t nameLength = data[0] < size - 1 ? data[0] : size - 1;
    const QByteArray name(reinterpret_cast<const char*>(data + 1), qsizetype(nameLength));
    const QByteArray payload(reinterpret_cast<const char*>(data + 1 + nameLength), qsizetype(size - 1 - nameLength));
    PayloadDecoder::describe(name, payload);
    return 0;
}
