#include "views/focus/FocusRecordController.h"

#include "focus/FocusRecordEditor.h"
#include "model/OrvaneKit.h"
#include "model/settings/KWLocalizedString.h"
#include "views/focus/FocusPresenter.h"
#include "views/focus/FocusRecordDialog.h"
#include "views/focus/FocusRecordList.h"
#include "views/focus/FocusSideView.h"

using namespace std::chrono;

namespace {

constexpr minutes usualRecord{25};
/// So few that the days below them are in view; more are asked for.
constexpr int firstRecords = 5;

CXTimeZone zoneOf(OrvaneKit &kit) { return kit.context().clock().zone(); }

} // namespace

FocusRecordController::FocusRecordController(const Parts &parts)
    : m_parts(parts), m_loader(parts.presenter.kit())
{
    FocusSideView &side = m_parts.side;
    connect(&m_loader, &FocusPageLoader::loaded, this, [this](const FocusPageContent &content) {
        m_parts.side.setContent(content, zoneOf(m_parts.presenter.kit()));
    });
    connect(&m_loader, &FocusPageLoader::failed, this, &FocusRecordController::failed);
    connect(&side, &FocusSideView::moreRecordsRequested, &m_loader, &FocusPageLoader::loadMoreRecords);
    connect(&side, &FocusSideView::periodRequested, &m_loader, &FocusPageLoader::showPeriod);
    connect(&side, &FocusSideView::creationRequested, this, &FocusRecordController::create);
    const FocusRecordList &records = side.records();
    connect(&records, &FocusRecordList::editRequested, this, &FocusRecordController::edit);
    connect(&records, &FocusRecordList::removalRequested, this, &FocusRecordController::remove);
    connect(&records, &FocusRecordList::targetRequested, this, &FocusRecordController::targetRequested);
}

void FocusRecordController::open() { m_loader.load({.recordLimit = firstRecords}); }

// A Pomo that has just ended.
void FocusRecordController::create()
{
    OrvaneKit &kit = m_parts.presenter.kit();
    const LocalTime end = floor<minutes>(zoneOf(kit).toLocal(kit.context().clock().now()));
    auto *dialog =
        new FocusRecordDialog{FocusRecordDialog::Purpose::Add,
                              {.target = m_parts.presenter.target(), .start = end - usualRecord, .end = end},
                              m_parts.presenter,
                              &m_parts.window};
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &FocusRecordDialog::saveRequested, this, [this, dialog] { saveNew(*dialog); });
    dialog->open();
}

void FocusRecordController::edit(const QString &recordID)
{
    const FocusRecordRow *record = m_parts.side.records().record(recordID);
    if (!record) return;
    const FocusSubject &subject = record->mainSubject();
    const CXTimeZone zone = zoneOf(m_parts.presenter.kit());
    auto *dialog = new FocusRecordDialog{
        FocusRecordDialog::Purpose::Change,
        {.target = {.target = subject.target, .title = subject.title, .color = subject.color},
         .hasSeveralTargets = record->subjects.size() > 1,
         .type = record->type,
         .start = zone.toLocal(record->startDate),
         .end = zone.toLocal(record->endDate)},
        m_parts.presenter,
        &m_parts.window};
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &FocusRecordDialog::saveRequested, this,
            [this, dialog, recordID] { saveChange(*dialog, recordID); });
    dialog->open();
}

void FocusRecordController::saveNew(FocusRecordDialog &dialog)
{
    OrvaneKit &kit = m_parts.presenter.kit();
    const auto made = FocusRecordEditor{kit}.add({.target = dialog.shownTarget(),
                                                  .startDate = zoneOf(kit).toInstant(dialog.start()),
                                                  .endDate = zoneOf(kit).toInstant(dialog.end()),
                                                  .type = dialog.type()});
    report(made ? Result<UndoToken>{made->undo} : made.error(), KWLocalizedString("Record added"), &dialog);
}

void FocusRecordController::saveChange(FocusRecordDialog &dialog, const QString &recordID)
{
    OrvaneKit &kit = m_parts.presenter.kit();
    report(FocusRecordEditor{kit}.change(recordID, {.startDate = zoneOf(kit).toInstant(dialog.start()),
                                                    .endDate = zoneOf(kit).toInstant(dialog.end()),
                                                    .target = dialog.chosenTarget()}),
           KWLocalizedString("Record changed"), &dialog);
}

void FocusRecordController::remove(const QString &recordID)
{
    report(FocusRecordEditor{m_parts.presenter.kit()}.remove(recordID), KWLocalizedString("Record deleted"),
           nullptr);
}

void FocusRecordController::report(const Result<UndoToken> &done, const QString &message,
                                   FocusRecordDialog *dialog)
{
    if (!done && dialog) return dialog->showProblem(done.error().sentence);
    if (!done) return Q_EMIT failed(done.error().sentence);
    if (dialog) dialog->accept();
    if (done->isEmpty()) return;
    Q_EMIT changed(message, [this, token = *done] {
        if (const auto undone = token.undo(m_parts.presenter.kit().manager()); !undone)
            Q_EMIT failed(undone.error().sentence);
    });
}
