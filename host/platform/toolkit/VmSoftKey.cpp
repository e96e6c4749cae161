#include "platform/VmSoftKey.h"

#include <QHBoxLayout>
#include <QPointer>
#include <QPushButton>

#include <array>

#include "host/platform/toolkit/HostScreen.h"
#include "platform/VmOptionsMenu.h"

namespace {

constexpr int kKeyCount = 2;

struct Key {
    QPushButton* button = nullptr; // owned by the bar
    QPointer<VmOptionsMenu> menu;  // not owned; its parent disposes of it
    int priority = 0;
};

bool isKey(int key)
{
    return key >= 0 && key < kKeyCount;
}

} // namespace

struct VmSoftKey::Private {
    std::array<Key, kKeyCount> keys;
};

VmSoftKey::VmSoftKey(QWidget* parent) : QWidget(parent), d(std::make_unique<Private>())
{
    setObjectName(QStringLiteral("softKey"));
    setFixedHeight(HostScreen::kSoftKeyHeight);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    const char* const names[kKeyCount] = {"leftKey", "rightKey"};
    for (int key = 0; key < kKeyCount; ++key) {
        auto* button = new QPushButton(this);
        button->setObjectName(QString::fromLatin1(names[key]));
        // Keys reach the main widget, which presses the soft keys; a button
        // holding the focus would take the space bar and Enter for itself.
        button->setFocusPolicy(Qt::NoFocus);
        connect(button, &QPushButton::clicked, this, [this, key] { click(key); });
        layout->addWidget(button);
        d->keys[key].button = button;
    }
}

VmSoftKey::~VmSoftKey() = default;

void VmSoftKey::setText(int key, const QString& text, int priority)
{
    if (!isKey(key))
        return;
    Key& target = d->keys[key];
    if (text.isNull()) {
        target.button->setText(QString());
        target.priority = 0;
        return;
    }
    if (priority < target.priority && !target.button->text().isEmpty())
        return;
    target.button->setText(text);
    target.priority = priority;
}

QString VmSoftKey::text(int key) const
{
    return isKey(key) ? d->keys[key].button->text() : QString();
}

void VmSoftKey::setOptMenu(int key, VmOptionsMenu* menu)
{
    if (isKey(key))
        d->keys[key].menu = menu;
}

VmOptionsMenu* VmSoftKey::optMenu(int key) const
{
    return isKey(key) ? d->keys[key].menu.data() : nullptr;
}

void VmSoftKey::click(int key)
{
    if (!isKey(key))
        return;
    if (VmOptionsMenu* menu = d->keys[key].menu) {
        menu->popup();
        return;
    }
    // A receiver may close the screen that owns the bar.
    const QPointer<VmSoftKey> self(this);
    Q_EMIT clicked(key);
    if (!self)
        return;
    if (key == 0)
        Q_EMIT leftClicked();
    else
        Q_EMIT rightClicked();
}

void VmSoftKey::slotBtnReleased(int key)
{
    if (isKey(key))
        d->keys[key].button->setDown(false);
}
