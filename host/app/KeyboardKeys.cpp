#include "host/app/KeyboardKeys.h"

#include <QCoreApplication>
#include <QDataStream>
#include <QKeyEvent>
#include <QWidget>

#include "host/app/PlayerSession.h"
#include "host/engine/HostEngine.h"
#include "platform/PhoneServices.h"
#include "platform/QCopChannel.h"
#include "platform/StreamEncoding.h"
#include "platform/VmKbMainWidget.h"

namespace {

using Kind = KeyboardKeys::PhoneKey::Kind;

// Key types of "keyMsg(int,int)".
const int kKeyDown = 1;
const int kKeyUp = 2;

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
        return PhoneKey{Kind::ChannelKey, 0x1048};
    case Qt::Key_MediaTogglePlayPause:
    case Qt::Key_MediaPlay:
    case Qt::Key_MediaPause:
        return PhoneKey{Kind::ChannelKey, 0x1050};
    case Qt::Key_MediaNext:
        return PhoneKey{Kind::ChannelKey, 0x1055};
    case Qt::Key_MediaPrevious:
        return PhoneKey{Kind::ChannelKey, 0x1056};
    case Qt::Key_Left:
        return PhoneKey{Kind::ChannelKey, 0x1053};
    case Qt::Key_Right:
        return PhoneKey{Kind::ChannelKey, 0x1054};
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
        out << qint32(key.code) << qint32(down ? kKeyDown : kKeyUp);
        QCopChannel::send(UTIL_GetKeyEventChannel().toLatin1(), "keyMsg(int,int)", payload);
        return;
    }
    }
}
