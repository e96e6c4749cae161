#include "screen/MP_ActionBase.h"

MP_ActionBase::MP_ActionBase(int index, const QString& text)
    : m_index(index), m_text(text), m_hided(false), m_disabled(false), m_checked(false)
{
}

MP_ActionBase::~MP_ActionBase() = default;

MP_ActionBase& MP_ActionBase::operator=(const MP_ActionBase& other)
{
    if (this == &other)
        return *this;
    m_index = other.m_index;
    m_text = other.m_text;
    m_hided = other.m_hided;
    m_disabled = other.m_disabled;
    m_checked = other.m_checked;
    return *this;
}

void MP_ActionBase::setIndex(int index)
{
    if (m_index != index)
        m_index = index;
}

void MP_ActionBase::setText(const QString& text)
{
    if (m_text != text)
        m_text = text;
}

void MP_ActionBase::setHided(bool hided)
{
    if (m_hided != hided)
        m_hided = hided;
}

void MP_ActionBase::setDisabled(bool disabled)
{
    if (m_disabled != disabled)
        m_disabled = disabled;
}

void MP_ActionBase::setChecked(bool checked)
{
    if (m_checked != checked)
        m_checked = checked;
}
