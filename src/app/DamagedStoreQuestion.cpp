#include "app/DamagedStoreQuestion.h"

#include "model/settings/KWLocalizedString.h"
#include "model/store/BackupTitle.h"

void DamagedStoreQuestion::ask(const std::optional<StoreBackup> &newestGood)
{
    const QString message = KWLocalizedString("The file with your tasks is damaged");
    if (!newestGood)
        return m_alerts.tell(message,
                             KWLocalizedString("There is no backup to put in its place. Save what can still "
                                               "be read with “orvane export”."));
    const QString offer =
        KWLocalizedString("%1 can be put in its place. What you changed since then is not in it; the damaged "
                          "file is kept beside it. Orvane starts again for that.");
    // It comes while a person types: Enter must not decide it.
    m_alerts.show({.message = message,
                   .text = offer.arg(titleOf(*newestGood)),
                   .buttons = {KWLocalizedString("Restore and Restart"), KWLocalizedString("Not Now")},
                   .defaultButton = 1},
                  [this, message, backup = *newestGood](int button) {
                      const Result<void> noted = button == 0 ? m_care.restore(backup) : Result<void>{};
                      if (!noted) m_alerts.tell(message, noted.error().sentence);
                  });
}
