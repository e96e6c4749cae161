#include "host/platform/toolkit/HostDialogButtons.h"

#include <QDialogButtonBox>
#include <QPushButton>

#include "platform/TextResources.h"

void HostDialogButtons::translate(QDialogButtonBox& buttons)
{
    if (QPushButton* ok = buttons.button(QDialogButtonBox::Ok))
        ok->setText(MP_tr("HOST_BUTTON_OK", "OK"));
    if (QPushButton* cancel = buttons.button(QDialogButtonBox::Cancel))
        cancel->setText(MP_tr("TXT_RID_SOFTKEY_CANCEL", "Cancel"));
}
