#include "platform/VmKbMainWidget.h"

#include <QKeyEvent>
#include <QVBoxLayout>

#include "host/platform/toolkit/HostScreen.h"
#include "platform/VmSoftKey.h"

namespace {

// The soft key a key of the keyboard presses; -1 for any other key.
int softKeyOf(int key)
{
    switch (key) {
    case Qt::Key_F1:
    case Qt::Key_Context1:
        return 0;
    case Qt::Key_F2:
    case Qt::Key_Context2:
        return 1;
    default:
        return -1;
    }
}

} // namespace

VmKbMainWidget::VmKbMainWidget(QWidget* parent) : QWidget(parent), m_content(new QWidget(this)), m_softKey(nullptr)
{
    setWindowTitle(QStringLiteral("Media Player"));
    setObjectName(QStringLiteral("mainWidget"));
    m_content->setObjectName(QStringLiteral("content"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_content, 1);
    resize(HostScreen::kWidth, HostScreen::kHeight);
    setFocusPolicy(Qt::StrongFocus);
}

VmKbMainWidget::~VmKbMainWidget() = default;

VmSoftKey* VmKbMainWidget::getSoftKey(bool create)
{
    if (!m_softKey && create) {
        m_softKey = new VmSoftKey(this);
        layout()->addWidget(m_softKey);
    }
    return m_softKey;
}

QWidget* VmKbMainWidget::contentArea() const
{
    return m_content;
}

void VmKbMainWidget::keyPressEvent(QKeyEvent* event)
{
    const int key = softKeyOf(event->key());
    if (key < 0 || !m_softKey || event->isAutoRepeat()) {
        QWidget::keyPressEvent(event);
        return;
    }
    m_softKey->click(key);
    event->accept();
}
