#include "host/app/KeyboardKeys.h"

#include <QCoreApplication>
#include <QDataStream>
#include <QKeyEvent>
#include <QWidget>

#include "host/app/PlayerSession.h"
#include "host/contracts/KeyEventChannel.h"
#include "host/engine/HostEngine.h"
#include "platform/QCopChannel.h"
#include "platform/StreamEncoding.h"
#include "platform/VmKbMainWidget.h"

namespace {

using Kind = KeyboardKeys::PhoneKey::Kind;

} // namespace

KeyboardKeys::KeyboardKeys(PlayerSession& session) : m_session(session)
{
    QCoreApplication::instance()->installEventFilter(this);
}

KeyboardKeys::~KeyboardKeys()
{
    if (QCoreApplication* application = QCoreApplication::instance())
        application->removeEventFilter(this);
}

std::optional<KeyboardKeys::PhoneKey> KeyboardKeys::phoneKeyOf(int qtKey)
{
    switch (qtKey) {
    case Qt::Key_Escape:
        return PhoneKey{Kind::EndKey, 0};
    case Qt::Key_Backspace:
        return PhoneKey{Kind::ClearKey, 0};
    case Qt::Key_S:
        return PhoneKey{Kind::SetupKey, 0x4002};
    case Qt::Key_R:
        return PhoneKey{Kind::SetupKey, 0x4003};
    case Qt::Key_T:
        return PhoneKey{Kind::SetupKey, 0x4006};
    case Qt::Key_J:
        return PhoneKey{Kind::ChannelKey, KeyEventChannel::kJumpKey};
    case Qt::Key_MediaTogglePlayPause:
    case Qt::Key_MediaPlay:
    case Qt::Key_MediaPause:
        return PhoneKey{Kind::ChannelKey, KeyEventChannel::kPlayKey};
    case Qt::Key_MediaNext:
        return PhoneKey{Kind::ChannelKey, KeyEventChannel::kNextKey};
    case Qt::Key_MediaPrevious:
        return PhoneKey{Kind::ChannelKey, KeyEventChannel::kPreviousKey};
    case Qt::Key_Left:
        return PhoneKey{Kind::ChannelKey, KeyEventChannel::kSeekBackKey};
    case Qt::Key_Right:
        return PhoneKey{Kind::ChannelKey, KeyEventChannel::kSeekForthKey};
    default:
        return std::nullopt;
    }
}

bool KeyboardKeys::eventFilter(QObject* watched, QEvent* event)
{
    const bool down = event->type() == QEvent::KeyPress;
    if ((!down && event->type() != QEvent::KeyRelease) || !isOnPlayerScreen(watched))
        return QObject::eventFilter(watched, event);
    const auto* keyEvent = static_cast<QKeyEvent*>(event);
    const std::optional<PhoneKey> key = phoneKeyOf(keyEvent->key());
    if (!key)
        return QObject::eventFilter(watched, event);
    if (!keyEvent->isAutoRepeat())
        press(*key, down);
    // Taken whole, repeats included: the widget under it must not act on it too.
    return true;
}

bool KeyboardKeys::isOnPlayerScreen(QObject* watched)
{
    HostEngine* engine = HostEngine::liveEngine();
    auto* widget = qobject_cast<QWidget*>(watched);
    return engine && widget && widget->window() == engine->getMainWidget();
}

void KeyboardKeys::press(const PhoneKey& key, bool down)
{
    HostEngine* engine = HostEngine::liveEngine();
    switch (key.kind) {
    case Kind::EndKey:
        if (down)
            m_session.pressEndKey();
        return;
    case Kind::ClearKey:
        if (down && engine)
            engine->pressClearKey();
        return;
    case Kind::SetupKey:
        if (engine)
            engine->pressSetupKey(key.code, down);
        return;
    case Kind::ChannelKey: {
        QByteArray payload;
        QDataStream out(&payload, QIODevice::WriteOnly);
        MP_SetPayloadFormat(out);
        out << qint32(key.code) << qint32(down ? KeyEventChannel::kPress : KeyEventChannel::kRelease);
        QCopChannel::send(KeyEventChannel::kChannel, KeyEventChannel::kKey, payload);
        return;
    }
    }
}
