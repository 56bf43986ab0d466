#include "views/addfield/MarkMeaning.h"

#include "capture/KWTagTextEntity.h"
#include "capture/NewTaskDraft.h"
#include "model/OrvaneKit.h"
#include "model/records/KWProject.h"
#include "model/records/KWSmartProject.h"
#include "model/records/PriorityNames.h"
#include "model/settings/KWLocalizedString.h"
#include "model/text/ListWording.h"
#include "views/addfield/TaskPlace.h"

#include <algorithm>

namespace {

QString dateIn(const TitleRecognition &found, const CXClock &clock)
{
    KWTaskModel task;
    if (const auto &date = found.date.dateTimeReminderModel) date->applyTo(task, clock.zone().identifier());
    return dateTextOf(task, clock);
}

QString listMeant(const RecognizedPiece &piece, OrvaneKit &kit)
{
    const KWProject *list = kit.context().find<KWProject>(piece.value);
    if (!list) return KWLocalizedString("New list “%1”").arg(piece.value);
    return KWLocalizedString("List: %1")
        .arg(list->isInbox() ? KWSmartProject::inbox().displayName() : (*list)->name);
}

// Tags that touch are one piece, and so is a date that touches one.
QString tagsMeant(const RecognizedPiece &piece, const TitleRecognition &found, const CXClock &clock)
{
    QStringList names;
    for (const auto &each : KWTagTextEntity::validEntitiesInText(piece.text))
        names.append(each->tagName());
    const QString tags = names.size() == 1 ? KWLocalizedString("Tag: %1").arg(names.first())
                                           : KWLocalizedString("Tags: %1").arg(ListWording::allOf(names));
    const TextRange range{piece.location, piece.length};
    const bool holdsDate = std::ranges::any_of(found.date.recognizedStrings, [&range](const auto &each) {
        return range.contains(each->range().location);
    });
    if (!holdsDate) return tags;
    return KWLocalizedString("%1. %2").arg(tags, KWLocalizedString("Date: %1").arg(dateIn(found, clock)));
}

QString meant(const RecognizedPiece &piece, const TitleRecognition &found, OrvaneKit &kit)
{
    switch (piece.type) {
    case RecognizedPieceType::Date:
        return KWLocalizedString("Date: %1").arg(dateIn(found, kit.clock()));
    case RecognizedPieceType::Tag:
        return tagsMeant(piece, found, kit.clock());
    case RecognizedPieceType::Priority:
        return KWLocalizedString("Priority: %1").arg(displayName(KWTaskPriority(piece.value.toInt())));
    case RecognizedPieceType::List:
        return listMeant(piece, kit);
    case RecognizedPieceType::Assignee:
        return KWLocalizedString("Assigned to %1")
            .arg(found.assignedTeamworker ? found.assignedTeamworker->name : piece.text);
    }
    return {};
}

} // namespace

QString meaningOf(const RecognizedPiece &piece, const NewTaskDraft &draft, OrvaneKit &kit)
{
    const QString words = meant(piece, draft.recognition, kit);
    const bool stays = piece.type == RecognizedPieceType::Tag;
    return stays ? words : KWLocalizedString("%1. Click to take it back.").arg(words);
}
