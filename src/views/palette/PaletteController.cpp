#include "views/palette/PaletteController.h"

#include "model/OrvaneKit.h"
#include "model/settings/KWLocalizedString.h"
#include "model/settings/KWUserDefaults.h"
#include "views/menu/MainMenu.h"
#include "views/palette/CommandPalette.h"
#include "views/palette/FoundRowsView.h"
#include "views/palette/PaletteNames.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype mostNames = 40;
constexpr int mostTasks = 25;
constexpr qsizetype mostRemembered = 20;

} // namespace

PaletteController::PaletteController(const Parts &parts) : m_parts(parts), m_names(QList<FoundRow>{}) {}

void PaletteController::open()
{
    if (m_palette) return;
    m_names = NameRanking{paletteNames(m_parts.sidebar, m_parts.menu)};
    m_palette = new CommandPalette{m_parts.window};
    connect(m_palette, &CommandPalette::typed, this, &PaletteController::show);
    connect(m_palette, &CommandPalette::chosen, this,
            [this](const FoundRow &row) { take(row, m_palette->text()); });
    m_palette->popUp();
}

void PaletteController::show(const QString &typed)
{
    const QString text = typed.simplified();
    NameRanking::Found names = m_names.find(text, recentUse());
    QList<FoundRow> rows = names.byWord.first(std::min(names.byWord.size(), mostNames));
    if (!text.isEmpty()) {
        rows += m_parts.hits.find(text, mostTasks);
        rows += names.withinWord.first(std::min(names.withinWord.size(), mostNames));
        rows.append({.kind = FoundRow::Kind::Search,
                     .id = {},
                     .title = KWLocalizedString("Search all for “%1”").arg(text),
                     .icon = Icon::Enter});
    }
    m_palette->rows().setRows(std::move(rows));
}

void PaletteController::take(const FoundRow &row, const QString &typed)
{
    switch (row.kind) {
    case FoundRow::Kind::List:
        remember(row.id);
        return Q_EMIT listChosen(row.list);
    case FoundRow::Kind::Command:
        remember(row.id);
        return m_parts.menu.trigger(row.command);
    case FoundRow::Kind::Task:
        return Q_EMIT taskChosen(row.id);
    case FoundRow::Kind::Search:
        return Q_EMIT searchChosen(typed);
    case FoundRow::Kind::Heading:
        return;
    }
}

QStringList PaletteController::recentUse() const
{
    return m_parts.kit.defaults().value(Settings::paletteUse, m_parts.kit.account().currentUserID());
}

void PaletteController::remember(const QString &id)
{
    QStringList used = recentUse();
    used.removeAll(id);
    used.prepend(id);
    m_parts.kit.defaults().set(Settings::paletteUse, used.first(std::min(used.size(), mostRemembered)),
                               m_parts.kit.account().currentUserID());
}
