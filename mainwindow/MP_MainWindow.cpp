#include "mainwindow/MP_MainWindow.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>

#include <cstring>

#include "clients/MP_MediafinderClient.h"
#include "clients/MP_BluetoothClient.h"
#include "clients/MP_IdleClient.h"
#include "clients/MP_CLIClient.h"
#include "lists/MP_AufContext.h"
#include "lists/MP_AufList.h"
#include "lists/MP_RecentList.h"
#include "platform/AM_Action.h"
#include "platform/MP_CommonPlayer.h"
#include "platform/PhoneServices.h"
#include "platform/QCopChannel.h"
#include "platform/SETUP_SET_Manager.h"
#include "platform/TraceLog.h"
#include "screen/MP_WindowClient.h"

MP_DEFINE_TRACE(MainWindowTrace, "MP_MainWindow")

namespace {

const char* const kSystemChannel = "VEMO/System";
const QString kSettingsGroup = QStringLiteral("MediaControlItem");

} // namespace

MP_MainWindow::MP_MainWindow(const QString& passedFile, QWidget* parent, const char* name, unsigned int flags)
    : QWidget(parent, Qt::WindowFlags(flags)),
      m_launchType(MP_LAUNCH_FILE),
      m_passedFile(passedFile),
      m_launcherId(),
      m_flipClosed(UTIL_GetFlipStatus() == 1),
      m_contentTypeUnknown(true),
      m_jumpKeyPending(false),
      m_contentType(MP_CONTENT_UNKNOWN),
      m_systemChannel(nullptr),
      m_keyChannel(nullptr)
{
    if (name)
        setObjectName(QString::fromLatin1(name));
    std::memset(&m_lastPlayedList, 0, sizeof m_lastPlayedList);

    m_systemChannel = new QCopChannel(kSystemChannel, this);
    m_keyChannel = new QCopChannel(UTIL_GetKeyEventChannel().toLatin1(), this);

    m_launchType = MP_LAUNCH_FILE;
    setGeometry(0, 0, 0, 0);

    // The first work waits for the event loop, so that the application has
    // finished creating and wiring the window before anything plays.
    if (m_passedFile.isEmpty())
        QCoreApplication::postEvent(this, new QEvent(QEvent::Type(StartupEventType)));
    else
        QTimer::singleShot(1, this, SLOT(onPassFile()));

    connect(AM_ActionReceiver::instance(), SIGNAL(receiveAction(const AM_ActionData&)), this,
            SLOT(onReceiveAction(const AM_ActionData&)));
    connect(m_systemChannel, SIGNAL(received(const QCString&, const QByteArray&)), this,
            SLOT(slotSystemMessage(const QCString&, const QByteArray&)));
    connect(m_keyChannel, SIGNAL(received(const QCString&, const QByteArray&)), this,
            SLOT(slotKeyMessage(const QCString&, const QByteArray&)));
    MainWindowTrace(3, "MP_MainWindow: created, passed file \"%s\"\n", qPrintable(m_passedFile));
}

MP_MainWindow::~MP_MainWindow()
{
    MainWindowTrace(3, "~MP_MainWindow: Enter\n");
    delete m_systemChannel;
    m_systemChannel = nullptr;
    delete m_keyChannel;
    m_keyChannel = nullptr;

    freeCommonPlayer();
    freeCurrentList();

    SETUP_SET_Manager settings(AM_Global::MediaPlayer, false);
    settings.setSettingInfo(kSettingsGroup, QStringLiteral("HidePlaying"), false);
    MainWindowTrace(3, "~MP_MainWindow: Leave\n");
}

void MP_MainWindow::initCommonPlayer(bool playerFlag)
{
    if (m_commonPlayer) {
        m_commonPlayer->showPlayer();
        return;
    }
    MainWindowTrace(3, "initCommonPlayer: playerFlag %d, launch type %d\n", playerFlag, m_launchType);
    m_commonPlayer.reset(MP_CreateCommonPlayer(playerFlag, m_launchType));
    connect(m_commonPlayer.get(), SIGNAL(signalContentTypeChanged(MP_CONTENT_TYPE)), this,
            SLOT(slotContentTypeChanged(MP_CONTENT_TYPE)));
    m_mediafinderClient = std::make_unique<MP_MediafinderClient>(m_commonPlayer.get());
    m_windowClient = std::make_unique<MP_WindowClient>(m_commonPlayer.get());
    connect(m_windowClient.get(), SIGNAL(closePlayer()), this, SLOT(onClosePlayer()));
    connect(m_windowClient.get(), SIGNAL(hidePlayer()), this, SLOT(onHidePlayer()));
    connect(m_windowClient.get(), SIGNAL(quitApp()), this, SLOT(onQuitApp()));
    connect(m_windowClient.get(), SIGNAL(signalSetupKeyClicked(int, bool)), this, SLOT(onSetupKeyClicked(int, bool)));
    connect(m_windowClient.get(), SIGNAL(signalCurrentChanged()), this, SLOT(onCurrentItemChanged()));
    m_idleClient = std::make_unique<MP_IdleClient>(m_commonPlayer.get());
    connect(m_idleClient.get(), SIGNAL(sigQuitApp()), this, SLOT(onQuitApp()));
    connect(m_idleClient.get(), SIGNAL(sigSetupKeyClicked(int, bool)), this, SLOT(onSetupKeyClicked(int, bool)));
    m_btClient = std::make_unique<MP_BluetoothClient>(m_commonPlayer.get(), this, m_windowClient.get(),
                                                      m_launcherId == QLatin1String("BTAvrcpKeys"));
    updateCLIClient();
}

void MP_MainWindow::freeCommonPlayer()
{
    if (!m_commonPlayer)
        return;
    MainWindowTrace(3, "freeCommonPlayer\n");
    // Clients unregister from the engine as they go, so every client goes
    // before the engine; the external-display client is the last of them.
    m_mediafinderClient.reset();
    m_idleClient.reset();
    m_btClient.reset();
    m_windowClient.reset();
    m_cliClient.reset();
    m_commonPlayer.reset();
}

void MP_MainWindow::setMediaFile(const QString& fileName)
{
    MainWindowTrace(3, "setMediaFile: \"%s\"\n", qPrintable(fileName));
    initCommonPlayer(false);
    m_windowClient->setUserList(false);
    m_windowClient->setBackHide(false);
    m_mediafinderClient->setAufList(nullptr);
    m_commonPlayer->setShuffleRepeat(false, false);
    m_commonPlayer->setFile(fileName);
    playAutomatically(false);
}

void MP_MainWindow::playAutomatically(bool playFlag)
{
    m_commonPlayer->autoPlay(playFlag);
}

void MP_MainWindow::readSetting(bool isVideo, bool forceShuffle)
{
    const SETUP_SET_Manager settings(AM_Global::MediaPlayer, false);
    bool repeat = false;
    int mode = 0;
    settings.getSettingInfo(kSettingsGroup, isVideo ? QStringLiteral("VideoRepeat") : QStringLiteral("MusicRepeat"),
                            repeat, false);
    settings.getSettingInfo(kSettingsGroup, isVideo ? QStringLiteral("VideoShuffle") : QStringLiteral("MusicShuffle"),
                            mode, 0);
    // A stored mode this player does not know (a settings file edited by
    // hand, or written by a later version) is read as off, as the setup
    // channel's unknown modes are ignored: taken as it is, it would give
    // every list no songs at all.
    if (mode < MP_AufList::ShuffleOff || mode > MP_AufList::ShuffleAlbums) {
        MainWindowTrace(3, "readSetting: unknown shuffle mode %d read as off\n", mode);
        mode = MP_AufList::ShuffleOff;
    }
    MP_AufContext::shuffleSetting = mode;
    if (forceShuffle)
        mode = 1;
    MP_AufContext::shuffle = mode;
    MP_AufContext::isRepeat = repeat;
    MainWindowTrace(3, "readSetting: video %d, shuffle %d (setting %d), repeat %d\n", isVideo, mode,
                    MP_AufContext::shuffleSetting, repeat);
}

void MP_MainWindow::setList(MP_AufList* list, bool userList, bool playFlag, bool playerFlag, bool startPlayback,
                            MP_LAUNCH_TYPE launchType)
{
    MainWindowTrace(3, "setList: userList %d, playFlag %d, playerFlag %d, start %d, launch type %d\n", userList,
                    playFlag, playerFlag, startPlayback, launchType);
    m_launchType = launchType;
    initCommonPlayer(playerFlag);
    if (list == m_list.get())
        return;
    m_list.reset(list);
    m_commonPlayer->setShuffleRepeat(MP_AufContext::shuffleSetting != 0, MP_AufContext::isRepeat);
    if (m_list) {
        connect(m_list.get(), SIGNAL(signalCurrentChanged()), this, SLOT(onCurrentItemChanged()));
        connect(m_list.get(), SIGNAL(signalListUpdate(int, bool)), this, SLOT(onShuffleRepeat(int, bool)));
    }
    m_windowClient->setUserList(userList);
    m_windowClient->setBackHide(true);
    m_mediafinderClient->setAufList(m_list.get());
    m_commonPlayer->setPlayList(m_list.get());
    if (startPlayback)
        playAutomatically(playFlag);
}

void MP_MainWindow::freeCurrentList()
{
    if (m_list) {
        MP_RecentList::getRecentList(MP_CONTENT_SOUND)->saveToDB();
        if (m_commonPlayer)
            m_commonPlayer->setPlayList(nullptr);
        m_list.reset();
    }
    clearLastPlayedRecord();
}

void MP_MainWindow::clearLastPlayedRecord()
{
    std::memset(&m_lastPlayedList, 0, sizeof m_lastPlayedList);
    m_lastPlayedList.listType = -1;
    m_lastPlayedList.groupObjectId = uint32_t(-1);
    m_lastPlayedList.storageLocation = -1;
    m_lastPlayedList.firstIndex = -1;
}

void MP_MainWindow::onPassFile()
{
    releaseListQuietly();
    setMediaFile(m_passedFile);
}

void MP_MainWindow::releaseListQuietly()
{
    if (!m_list)
        return;
    // The engine lets go first, so that it never holds a deleted list.
    if (m_commonPlayer)
        m_commonPlayer->setPlayList(nullptr);
    m_list.reset();
}

void MP_MainWindow::onOpenDoc(const QString& fileName)
{
    setMediaFile(fileName);
}

