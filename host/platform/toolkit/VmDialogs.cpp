#include "platform/VmDialogs.h"

#include <QJsonObject>

#include <algorithm>

#include "host/platform/HostJournal.h"
#include "host/platform/toolkit/HostDialogs.h"

namespace {
const int kInformationType = 2;
}

VmNoticeDlg::VmNoticeDlg(int type, const QString& title, const QString& text, QWidget*)
    : m_type(type), m_title(title), m_text(text)
{
}

int VmNoticeDlg::exec()
{
    return HostDialogs::run(HostDialogs::Kind::Notice, QStringLiteral("VmNoticeDlg"), m_type, m_title, m_text);
}

VmMessageDlg::VmMessageDlg(int type, const QString& title, const QString& text, QWidget*)
    : m_type(type), m_title(title), m_text(text)
{
}

VmMessageDlg::VmMessageDlg(const QString& title, const QString& text, int type, int, QWidget*, const char*, bool,
                           int)
    : m_type(type), m_title(title), m_text(text)
{
}

int VmMessageDlg::exec()
{
    // Type 2 is the information notice ("Buy More", "Cannot Open"): one
    // button, like every notice, not a Yes/No question.
    const HostDialogs::Kind kind = m_type == kInformationType ? HostDialogs::Kind::Notice : HostDialogs::Kind::Question;
    return HostDialogs::run(kind, QStringLiteral("VmMessageDlg"), m_type, m_title, m_text, m_titleIcon);
}

VmMeterModule::VmMeterModule(int maximum, int, QWidget*, const char*, int, int, int) : m_maximum(std::max(0, maximum))
{
}

void VmMeterModule::setValue(int value)
{
    m_value = std::clamp(value, 0, m_maximum);
}

VmNoticeDelay::VmNoticeDelay(const QString& title, VmMeterModule* meter, QWidget*, const QString& text, int type)
    : m_title(title), m_meter(meter), m_text(text), m_type(type)
{
}

VmNoticeDelay::~VmNoticeDelay() = default;

void VmNoticeDelay::show()
{
    // A notice that waits for no answer: journaled when it appears, without
    // "answer"; it goes when its owner deletes it.
    if (m_shown)
        return;
    m_shown = true;
    HostJournal::write(QJsonObject{{"kind", "dialog"}, {"class", "VmNoticeDelay"}, {"type", m_type},
                                   {"title", m_title}, {"text", m_text}});
}
