#pragma once
// The phone's storages on the host: the phone memory is wherever files are;
// the memory card is one folder of the data folder.

#include <QString>

#include <optional>

class HostStorage {
public:
    static constexpr int kPhoneMemory = 0;
    static constexpr int kMemoryCard = 1;

    /** The memory card's folder: <data folder>/mmca1 (not created here). */
    static QString memoryCardPath();
    /** kMemoryCard when @p path lies inside the memory card's folder, else kPhoneMemory. */
    static int storageOf(const QString& path);

    /** The number of storages the phone has: the profile's "MF_FlexNumber"/"StorageNumber". */
    static int storageCount();
    /** The one storage that a request's storage location selects: a location below
     *  @p storageCount selects that storage alone; nothing (every storage) otherwise. */
    static std::optional<int> selectedStorage(int location, int storageCount);
};
