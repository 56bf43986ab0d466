#include "views/filtereditor/FilterEditorController.h"

#include "model/OrvaneKit.h"
#include "model/records/KWFilter.h"
#include "views/filtereditor/FilterEditor.h"

FilterEditorController::FilterEditorController(OrvaneKit &kit, QWidget &window)
    : m_kit(kit), m_window(window), m_registration(kit.bus().registerEventBus([this](const StoreChange &) {
        if (m_editor) m_editor->refreshCount();
    }))
{
}

KWFilterService FilterEditorController::service() const
{
    return {m_kit.manager(), m_kit.account().currentUserID()};
}

void FilterEditorController::edit(const QString &filterID)
{
    if (m_editor) return m_editor->activateWindow();
    FilterEditor::Content content;
    QString problem;
    if (!filterID.isEmpty()) {
        const KWFilter *filter = m_kit.context().find<KWFilter>(filterID);
        if (!filter || filter->isDeleted()) return Q_EMIT failed(tr("There is no such filter any more."));
        const Result<CXSmartFilter> parsed = filter->parsedSmartFilter();
        content = {(*filter)->name, parsed.valueOr({})};
        if (!parsed) problem = tr("%1 Saving replaces it.").arg(parsed.error().sentence);
    }
    const QString user = m_kit.account().currentUserID();
    m_editor = new FilterEditor{content, FilterChoices::read(user, m_kit.context()),
                                m_kit.context().clock().today(), &m_window};
    m_editor->setAttribute(Qt::WA_DeleteOnClose);
    m_editor->setCount([this](const CXSmartFilter &filter) { return service().countOfTasks(filter); });
    if (!problem.isEmpty()) m_editor->showProblem(problem);
    connect(m_editor, &FilterEditor::saveRequested, this, [this, filterID] { save(filterID); });
    m_editor->open();
}

void FilterEditorController::save(const QString &filterID)
{
    const auto [name, filter] = m_editor->content();
    if (filterID.isEmpty()) {
        const Result<QString> saved = service().create(name, filter);
        if (!saved) return m_editor->showProblem(saved.error().sentence);
        m_editor->accept();
        return Q_EMIT made(KWListIdentifier::filter(*saved));
    }
    const Result<void> saved = service().change(filterID, name, filter);
    if (!saved) return m_editor->showProblem(saved.error().sentence);
    m_editor->accept();
}
