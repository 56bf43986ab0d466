#include "views/alerts/StoreProblemAlert.h"

#include "model/settings/KWLocalizedString.h"
#include "model/store/BackupTitle.h"
#include "views/alerts/Alert.h"

StoreProblemAnswer askAboutStoreProblem(StoreProblem problem, const QString &sentence,
                                        const std::optional<StoreBackup> &backup)
{
    const QString title = KWLocalizedString("Orvane cannot open your tasks");
    const QString quit = KWLocalizedString("Quit");
    const bool isLost = problem == StoreProblem::Lost;
    if (problem != StoreProblem::Damaged && !isLost) {
        Alert::run({title, sentence, {quit}});
        return StoreProblemAnswer::Quit;
    }
    QString question =
        isLost ? KWLocalizedString("None of the backups can be read. You can start with an empty store.")
               : KWLocalizedString(
                     "You can keep the damaged store beside a fresh, empty one, and start with that.");
    QList<StoreProblemAnswer> answers{StoreProblemAnswer::StartFresh, StoreProblemAnswer::Quit};
    QStringList buttons{
        isLost ? KWLocalizedString("Start Fresh") : KWLocalizedString("Set Aside and Start Fresh"), quit};
    if (backup) {
        question =
            (isLost
                 ? KWLocalizedString("%1 can take its place, or an empty store.")
                 : KWLocalizedString("%1 can take its place, or an empty store. The damaged store is kept."))
                .arg(titleOf(*backup));
        answers.prepend(StoreProblemAnswer::RestoreBackup);
        buttons.prepend(KWLocalizedString("Restore Backup"));
    }
    // Enter, pressed without reading, leaves everything as it is.
    const int answer = Alert::run({.message = title,
                                   .text = sentence + u' ' + question,
                                   .buttons = buttons,
                                   .defaultButton = int(buttons.size()) - 1});
    return answers.at(answer);
}
