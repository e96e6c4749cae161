#include "platform/VmDialogs.h"

#include "host/platform/toolkit/HostDialogs.h"

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

int VmMessageDlg::exec()
{
    return HostDialogs::run(HostDialogs::Kind::Question, QStringLiteral("VmMessageDlg"), m_type, m_title, m_text);
}
