#include "host/tools/mp-mpris/StoredPlaySettings.h"

#include "platform/SETUP_SET_Manager.h"

namespace {
const int kPlayerApp = 71;
const QString kGroup = QStringLiteral("MediaControlItem");
} // namespace

int StoredPlaySettings::shuffleMode() const
{
    int mode = 0;
    SETUP_SET_Manager(kPlayerApp, true).getSettingInfo(kGroup, QStringLiteral("MusicShuffle"), mode, 0);
    return mode;
}

bool StoredPlaySettings::repeat() const
{
    bool repeat = false;
    SETUP_SET_Manager(kPlayerApp, true).getSettingInfo(kGroup, QStringLiteral("MusicRepeat"), repeat, false);
    return repeat;
}

void StoredPlaySettings::storeShuffleMode(int mode)
{
    SETUP_SET_Manager(kPlayerApp, false).setSettingInfo(kGroup, QStringLiteral("MusicShuffle"), mode);
}
