#include "host/platform/services/setuplib/HostSetupDialog.h"

#include <QBoxLayout>
#include <QByteArray>
#include <QCheckBox>
#include <QComboBox>
#include <QDataStream>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>

#include "host/contracts/SetupChangeChannel.h"
#include "host/platform/toolkit/HostDialogButtons.h"
#include "platform/QCopChannel.h"
#include "platform/SETUP_SET_Manager.h"
#include "platform/StreamEncoding.h"
#include "platform/TextResources.h"

namespace {

const int kPlayerApp = 71;
const char* const kGroup = "MediaControlItem";

QByteArray intPayload(int value)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    MP_SetPayloadFormat(stream);
    stream << qint32(value);
    return bytes;
}

} // namespace

HostSetupDialog::HostSetupDialog(int kind)
    : m_video(kind == 1),
      m_shuffleKey(m_video ? QStringLiteral("VideoShuffle") : QStringLiteral("MusicShuffle")),
      m_repeatKey(m_video ? QStringLiteral("VideoRepeat") : QStringLiteral("MusicRepeat"))
{
}

int HostSetupDialog::storedShuffle() const
{
    int value = 0;
    SETUP_SET_Manager(kPlayerApp, true).getSettingInfo(kGroup, m_shuffleKey, value, 0);
    return value;
}

bool HostSetupDialog::storedRepeat() const
{
    bool value = false;
    SETUP_SET_Manager(kPlayerApp, true).getSettingInfo(kGroup, m_repeatKey, value, false);
    return value;
}

HostSetupDialog::~HostSetupDialog() = default;

QDialog& HostSetupDialog::window()
{
    if (m_window)
        return *m_window;
    // No Q_OBJECT here: the library is unloaded after every use, and nothing
    // of it may stay registered with Qt once the dialog is gone.
    m_window = std::make_unique<QDialog>();
    QDialog& dialog = *m_window;
    dialog.setWindowTitle(m_video ? MP_tr("HOST_SETUP_VIDEO", "Video Setup") : MP_tr("HOST_SETUP_MUSIC", "Music Setup"));
    m_shuffle = new QComboBox(&dialog);
    m_shuffle->addItem(MP_tr("HOST_SETUP_OFF", "Off"));
    m_shuffle->addItem(m_video ? MP_tr("HOST_SETUP_ON", "On") : MP_tr("HOST_SETUP_SONGS", "Songs"));
    if (!m_video)
        m_shuffle->addItem(MP_tr("HOST_SETUP_ALBUMS", "Albums"));
    const int stored = storedShuffle();
    m_shuffle->setCurrentIndex(stored >= 0 && stored < m_shuffle->count() ? stored : 0);
    m_repeat = new QCheckBox(&dialog);
    m_repeat->setChecked(storedRepeat());
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    HostDialogButtons::translate(*buttons);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    // The window lives in this object and dies with it, so it may call back.
    QObject::connect(&dialog, &QDialog::accepted, &dialog,
                     [this] { apply(m_shuffle->currentIndex(), m_repeat->isChecked()); });
    auto* form = new QFormLayout;
    form->addRow(MP_tr("HOST_SETUP_SHUFFLE", "Shuffle"), m_shuffle);
    form->addRow(MP_tr("HOST_SETUP_REPEAT", "Repeat"), m_repeat);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addLayout(form);
    layout->addWidget(buttons);
    return dialog;
}

void HostSetupDialog::exec()
{
    window().exec();
}

void HostSetupDialog::apply(int shuffle, bool repeat)
{
    const int oldShuffle = storedShuffle();
    const bool oldRepeat = storedRepeat();
    SETUP_SET_Manager store(kPlayerApp, false);
    using namespace SetupChangeChannel;
    if (shuffle != oldShuffle && store.setSettingInfo(kGroup, m_shuffleKey, shuffle))
        QCopChannel::send(kChannel, m_video ? kShuffleVideo : kShuffleMusic, intPayload(shuffle));
    if (repeat != oldRepeat && store.setSettingInfo(kGroup, m_repeatKey, repeat))
        QCopChannel::send(kChannel, m_video ? kRepeatVideo : kRepeatMusic, intPayload(repeat ? 1 : 0));
}
