#include "views/alerts/StoreProblemAlert.h"

#include "model/settings/KWLocalizedString.h"
#include "views/alerts/Alert.h"

StoreProblemAnswer askAboutStoreProblem(StoreProblem problem, const QString &sentence)
{
    const QString title = KWLocalizedString("Orvane cannot open your tasks");
    const QString quit = KWLocalizedString("Quit");
    if (problem != StoreProblem::Damaged) {
        Alert::run({title, sentence, {quit}});
        return StoreProblemAnswer::Quit;
    }
    const QString question =
        KWLocalizedString("You can keep the damaged store beside a fresh, empty one, and start with that.");
    const QStringList buttons{KWLocalizedString("Set Aside and Start Fresh"), quit};
    // Enter, pressed without reading, leaves everything as it is.
    const int answer = Alert::run(
        {.title = title, .text = sentence + u' ' + question, .buttons = buttons, .defaultButton = 1});
    const bool startsFresh = answer == 0;
    return startsFresh ? StoreProblemAnswer::StartFresh : StoreProblemAnswer::Quit;
}
