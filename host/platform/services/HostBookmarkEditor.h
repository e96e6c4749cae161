#pragma once
// The window in which a person edits a stored bookmark: its title and its
// address, OK and Cancel. OK stores the edit in the bookmark's own file and
// closes; when the store refuses it (no address, the bookmark gone, a full
// disk) the window stays open with the edit and says why, so nothing typed
// is lost. Cancel closes and changes nothing.
//
// Built without being shown: exec() runs it modally, as the bookmark service
// does; a test may show() it, type into it and press its buttons.

#include <QDialog>

#include "host/platform/services/HostBookmarkStore.h"

class QDialogButtonBox;
class QLabel;
class QLineEdit;

class HostBookmarkEditor : public QDialog {
    Q_OBJECT

public:
    /** An editor of @p bookmark as it was read from the store; its fields start
     *  with the stored title and address. */
    explicit HostBookmarkEditor(const HostBookmark& bookmark, QWidget* parent = nullptr);

    /** The field of the title (object name "title"). */
    QLineEdit& titleField() const { return *m_title; }
    /** The field of the address (object name "address"). */
    QLineEdit& addressField() const { return *m_address; }
    /** Why the last OK was refused; empty before any refusal (object name "message"). */
    QString message() const;
    /** The OK and Cancel buttons. */
    QDialogButtonBox& buttons() const { return *m_buttons; }

    /** Stores the edit; closes as accepted only when it was stored. */
    void accept() override;

private:
    /** What the person is told when the store answers @p result. */
    static QString refusal(HostBookmarkStore::UpdateResult result);

    QString m_identity;
    // Children of this dialog, deleted with it.
    QLineEdit* m_title;
    QLineEdit* m_address;
    QLabel* m_message;
    QDialogButtonBox* m_buttons;
};
