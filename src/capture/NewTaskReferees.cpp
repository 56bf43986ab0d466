#include "capture/NewTaskReferees.h"

#include "capture/NewTaskContext.h"
#include "capture/TitleRecognition.h"
#include "model/OrvaneKit.h"

NewTaskReferees::NewTaskReferees(OrvaneKit &kit)
    : date(kit.clock(), kit.center(), [&kit] { return kit.account().taskDefaultConfiguration(); })
    , priority(kit.center(), [&kit] { return kit.account().taskDefaultConfiguration().priority; })
    , m_kit(kit)
{
}

QString NewTaskReferees::projectID() const
{
    return project.projectID().value_or(m_kit.account().defaultAddtoList());
}

void NewTaskReferees::setNlp(const TitleRecognition &found, const QString &text)
{
    date.setWithNlp(found.date.dateTimeReminderModel, text);
    priority.setNlp(found.priority);
    const auto &list = found.parsedProjectResult;
    project.setNlp(list ? std::optional{list->id} : std::nullopt);
}

void NewTaskReferees::setPreset(const NewTaskContext &view)
{
    if (view.presetDay)
        date.setPresetDay(*view.presetDay);
    else
        date.setPreset(view.presetsNoDate ? std::optional{KWTaskDateTimeReminderModel{}} : std::nullopt);
    priority.setPreset(view.presetPriority);
    project.setPreset(view.presetList);
}

void NewTaskReferees::restoreToPreset()
{
    date.restoreToPreset();
    priority.setManual(std::nullopt);
    project.setManual(std::nullopt);
}

void NewTaskReferees::restoreToDefault()
{
    restoreToPreset();
    date.restoreToDefault();
    priority.setPreset(std::nullopt);
    project.setPreset(std::nullopt);
}
