#include "views/habits/HabitController.h"

#include "model/OrvaneKit.h"
#include "model/records/KWHabit.h"
#include "model/settings/KWLocalizedString.h"
#include "views/habits/HabitEditorDialog.h"
#include "views/habits/HabitListView.h"
#include "views/habits/HabitNamePopup.h"
#include "views/habits/HabitNavigator.h"
#include "views/habits/HabitPane.h"
#include "views/habits/HabitPhrases.h"
#include "views/habits/HabitUndo.h"

using namespace Qt::StringLiterals;

HabitController::HabitController(const Parts &parts) : m_parts(parts)
{
    const HabitListView &list = m_parts.pane.list();
    connect(&list, &HabitListView::opened, this, &HabitController::opened);
    connect(&list, &HabitListView::editRequested, this, &HabitController::edit);
    connect(&list, &HabitListView::creationRequested, this, &HabitController::create);
    connect(&list, &HabitListView::removalRequested, this, &HabitController::remove);
    connect(&list, &HabitListView::moveRequested, this, &HabitController::move);
    connect(&list, &HabitListView::habitMenuAboutToShow, this, &HabitController::fillMenu);
    connect(&list, &HabitListView::sectionMenuAboutToShow, this, &HabitController::fillSectionMenu);
    connect(&m_parts.pane, &HabitPane::creationRequested, this, [this] { create({}); });
    connect(&m_parts.pane, &HabitPane::menuRequested, this, &HabitController::openPageMenu);
}

HabitEditor HabitController::editor() const
{
    return {m_parts.kit.manager(), m_parts.kit.account().currentUserID()};
}

QString HabitController::nameOf(const QString &habitID) const
{
    const KWHabit *habit = m_parts.kit.context().find<KWHabit>(habitID);
    return HabitPhrases::quoted(habit ? (*habit)->name : QString{});
}

bool HabitController::report(const Result<UndoToken> &done, const QString &message)
{
    if (done)
        told({*done}, message);
    else
        Q_EMIT failed(done.error().sentence);
    return bool(done);
}

void HabitController::told(const QList<UndoToken> &done, const QString &message)
{
    if (!HabitUndo::hasAny(done)) return;
    Q_EMIT changed(message, HabitUndo::undoing(done, m_parts.kit.manager(),
                                               [this](const QString &sentence) { Q_EMIT failed(sentence); }));
}

void HabitController::create(const QString &sectionID)
{
    KWHabitModel habit;
    habit.iconRes = u"star"_s;
    if (!sectionID.isEmpty()) habit.sectionID = sectionID;
    openEditor(habit);
}

void HabitController::edit(const QString &habitID)
{
    const KWHabit *habit = m_parts.kit.context().find<KWHabit>(habitID);
    if (habit && habit->isNotDeleted()) openEditor(habit->model());
}

void HabitController::openEditor(const KWHabitModel &habit)
{
    auto *dialog = new HabitEditorDialog{habit,
                                         {.sections = m_parts.pane.content().sections,
                                          .firstWeekday = m_parts.navigator.firstWeekday(),
                                          .today = m_parts.navigator.today()},
                                         &m_parts.window};
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &HabitEditorDialog::saveRequested, this,
            [this, dialog, id = habit.sid] { save(*dialog, id); });
    dialog->open();
}

// A section that could be made while the habit could not goes again.
void HabitController::save(HabitEditorDialog &dialog, const QString &habitID)
{
    QList<UndoToken> done;
    QString sectionID;
    if (const QString name = dialog.newSection(); !name.isEmpty()) {
        const auto made = editor().createSection(name);
        if (!made) return dialog.showSectionProblem(made.error().sentence);
        sectionID = made->sid;
        done << made->undo;
    }
    const auto fill = [&](KWHabitModel &habit) {
        dialog.applyTo(habit);
        if (!sectionID.isEmpty()) habit.sectionID = sectionID;
    };
    const auto stored = [&]() -> Result<HabitEditor::Made> {
        if (habitID.isEmpty()) {
            KWHabitModel habit;
            fill(habit);
            return editor().create(habit);
        }
        const auto updated = editor().update(habitID, fill);
        if (!updated) return updated.error();
        return HabitEditor::Made{.sid = habitID, .undo = *updated};
    }();
    if (!stored) {
        dialog.showProblem(stored.error().sentence);
        HabitUndo::undoing(done, m_parts.kit.manager(), [](const QString &) {})();
        return;
    }
    done << stored->undo;
    dialog.accept();
    m_parts.navigator.showHabit(stored->sid);
    told(done, (habitID.isEmpty() ? KWLocalizedString("%1 added") : KWLocalizedString("%1 changed"))
                   .arg(nameOf(stored->sid)));
}

void HabitController::setArchived(const QString &habitID, bool isArchived)
{
    report(editor().setArchived(habitID, isArchived),
           (isArchived ? KWLocalizedString("%1 archived") : KWLocalizedString("%1 restored"))
               .arg(nameOf(habitID)));
}

void HabitController::remove(const QString &habitID)
{
    const QString message = KWLocalizedString("%1 deleted").arg(nameOf(habitID));
    report(editor().remove(habitID), message);
}

void HabitController::move(const QString &habitID, const HabitDropPlace &place)
{
    report(editor().move(habitID, place.sectionID, place.nextHabitID),
           KWLocalizedString("%1 moved").arg(nameOf(habitID)));
}

void HabitController::moveSection(const QString &sectionID, int places)
{
    QStringList ids;
    for (const HabitSection &each : m_parts.pane.content().sections)
        if (each.sectionID != K_HABIT_SECTION_ID_OTHERS) ids << each.sectionID;
    const qsizetype from = ids.indexOf(sectionID);
    ids.removeAt(from);
    report(editor().moveSection(sectionID, ids.value(from + places)), KWLocalizedString("Section moved"));
}

void HabitController::askForSection(const HabitSection &section, const QPoint &position)
{
    auto *popup = new HabitNamePopup{KWLocalizedString("Name of the section"), section.name, &m_parts.window};
    connect(popup, &HabitNamePopup::nameTyped, this, [this, popup, section](const QString &name) {
        if (!section.sectionID.isEmpty() && name == section.name) {
            popup->close();
            return;
        }
        Result<UndoToken> done = UndoToken{};
        if (section.sectionID.isEmpty()) {
            const auto made = editor().createSection(name);
            done = made ? Result<UndoToken>{made->undo} : made.error();
        } else {
            done = editor().renameSection(section.sectionID, name);
        }
        if (!done) return popup->showProblem(done.error().sentence);
        popup->close();
        told({*done}, section.sectionID.isEmpty() ? KWLocalizedString("Section added")
                                                  : KWLocalizedString("Section renamed"));
    });
    popup->popUp(position);
}
