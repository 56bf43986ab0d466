#include "app/KWAbnormalDataCleanService.h"

#include "app/ApplicationName.h"
#include "model/exchange/DiagnosticData.h"
#include "model/settings/KWLocalizedString.h"

void KWAbnormalDataCleanService::run()
{
    m_all.alerts.show(announcement(), [this](int button) {
        if (button == 0) sendAndTerminate();
    });
}

AlertText KWAbnormalDataCleanService::announcement() const
{
    return {.message = textWithApplicationName("Send to %@"),
            .text =
                KWLocalizedString("Collecting abnormal data now. Click \"OK\" to open the Email client and "
                                  "Finder. If there's no attachment in the email, please manually drag "
                                  "the Zip file from Finder into the email and describe your issue as "
                                  "much specific as you could."),
            .buttons = {KWLocalizedString("OK"), KWLocalizedString("Cancel")}};
}

Result<void> KWAbnormalDataCleanService::send()
{
    const Result<QString> file = packDiagnosticData(m_all.folders, m_all.clock);
    if (!file) return file.error();
    m_all.mail.compose(textWithApplicationName("%@ diagnostic data"), *file);
    if (m_all.fileManager.showItem(*file)) return {};
    return Error{KWLocalizedString("There is no file manager to open. The file to send is “%1”.").arg(*file)};
}

void KWAbnormalDataCleanService::sendAndTerminate()
{
    if (const Result<void> sent = send(); sent)
        m_all.terminate();
    else
        m_all.alerts.tell(textWithApplicationName("Send to %@"), sent.error().sentence);
}
