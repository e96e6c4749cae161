#pragma once
// The state of one dynamic options-menu item: an item whose text, visibility
// and command belong to another part of the player, which creates the action
// and registers it with the screen client under the item's id.

#include <QString>

class MP_ActionBase {
public:
    /** An action for item @p index with the already translated @p text; no flag set. */
    MP_ActionBase(int index, const QString& text);
    virtual ~MP_ActionBase() = 0;

    /** Copies index, text and the three flags; assigning to itself changes nothing. */
    virtual MP_ActionBase& operator=(const MP_ActionBase& other);
    /** Recomputes text and flags for the moment the menu is about to open. */
    virtual void onUpdate() = 0;

    QString getText() const { return m_text; }
    int getIndex() const { return m_index; }
    bool getHided() const { return m_hided; }
    bool getDisabled() const { return m_disabled; }
    bool getChecked() const { return m_checked; }

    // Each setter stores only a value that differs from the stored one.
    void setIndex(int index);
    void setText(const QString& text);
    void setHided(bool hided);
    void setDisabled(bool disabled);
    void setChecked(bool checked);

protected:
    MP_ActionBase(const MP_ActionBase& other) = default;

private:
    int m_index;      // id of the options-menu item the action fills
    QString m_text;   // the item's text
    // One byte: bit 0 hidden, bit 1 disabled, bit 2 checked. Only the hidden
    // flag reaches the menu; the other two are kept for the action's creator.
    bool m_hided : 1;
    bool m_disabled : 1;
    bool m_checked : 1;
};
