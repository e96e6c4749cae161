#include "host/platform/services/HostBookmarkEditor.h"

#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>

#include "host/platform/toolkit/HostDialogButtons.h"
#include "platform/TextResources.h"

HostBookmarkEditor::HostBookmarkEditor(const HostBookmark& bookmark, QWidget* parent)
    : QDialog(parent),
      m_identity(bookmark.identity),
      m_title(new QLineEdit(bookmark.title, this)),
      m_address(new QLineEdit(bookmark.url, this)),
      m_message(new QLabel(this)),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this))
{
    setWindowTitle(MP_tr("TXT_RID_OPTION_EDIT_BOOKMARK", "Edit Bookmark"));
    m_title->setObjectName(QStringLiteral("title"));
    m_address->setObjectName(QStringLiteral("address"));
    m_message->setObjectName(QStringLiteral("message"));
    m_message->setWordWrap(true);
    m_message->hide();
    // A long address should be seen whole enough to be checked.
    m_address->setMinimumWidth(fontMetrics().averageCharWidth() * 32);
    HostDialogButtons::translate(*m_buttons);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &HostBookmarkEditor::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &HostBookmarkEditor::reject);

    auto* form = new QFormLayout;
    form->addRow(MP_tr("HOST_BOOKMARK_TITLE", "Title"), m_title);
    form->addRow(MP_tr("HOST_BOOKMARK_ADDRESS", "Address"), m_address);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(m_message);
    layout->addWidget(m_buttons);
}

QString HostBookmarkEditor::message() const
{
    return m_message->text();
}

void HostBookmarkEditor::accept()
{
    const HostBookmarkStore::UpdateResult result =
        HostBookmarkStore::update(m_identity, m_title->text(), m_address->text());
    if (result == HostBookmarkStore::UpdateResult::Stored) {
        QDialog::accept();
        return;
    }
    m_message->setText(refusal(result));
    m_message->show();
}

QString HostBookmarkEditor::refusal(HostBookmarkStore::UpdateResult result)
{
    switch (result) {
    case HostBookmarkStore::UpdateResult::NoAddress:
        return MP_tr("HOST_BOOKMARK_NO_ADDRESS", "Enter an address: a bookmark without one opens nothing.");
    case HostBookmarkStore::UpdateResult::TooLong:
        return MP_tr("HOST_BOOKMARK_TOO_LONG", "The title and address are too long to store.");
    case HostBookmarkStore::UpdateResult::NotABookmark:
        return MP_tr("HOST_BOOKMARK_GONE", "This bookmark is no longer stored.");
    case HostBookmarkStore::UpdateResult::NotWritten:
        return MP_tr("HOST_BOOKMARK_NOT_SAVED", "The bookmark could not be saved: the disk is full or read-only.");
    case HostBookmarkStore::UpdateResult::Stored:
        break;
    }
    return QString();
}
