#pragma once
// The application's --mpris: the bridge program mp-mpris, found beside this
// one, runs as a child for as long as this object lives, on the same data
// folder, so that the desktop's media controls see and drive the player.
// The bridge ends when this process ends, however it ends (the kernel is
// asked to terminate it when its parent dies). A build for another processor,
// run under an emulator, starts the bridge through the command MP_EMULATOR
// names.

#include <QString>

#include <memory>

class QProcess;

class MprisBridgeProcess {
public:
    MprisBridgeProcess();
    /** Ends the bridge. */
    ~MprisBridgeProcess();
    MprisBridgeProcess(const MprisBridgeProcess&) = delete;
    MprisBridgeProcess& operator=(const MprisBridgeProcess&) = delete;

    /** Starts the bridge on @p dataDir (empty: the one MP_DATA_DIR names); when
     *  it cannot run, says why on standard error once and returns false. */
    bool start(const QString& dataDir);

private:
    std::unique_ptr<QProcess> m_process;
};
