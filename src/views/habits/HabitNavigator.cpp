#include "views/habits/HabitNavigator.h"

#include "focus/FocusReader.h"
#include "model/OrvaneKit.h"
#include "model/settings/KWUserDefaults.h"
#include "views/habits/HabitDetailView.h"
#include "views/habits/HabitListView.h"
#include "views/habits/HabitPane.h"

using namespace std::chrono;

HabitNavigator::HabitNavigator(HabitPane &pane, HabitDetailView &detail, OrvaneKit &kit)
    : m_pane(pane), m_detail(detail), m_kit(kit), m_loader(kit)
{
    connect(&m_loader, &HabitPageLoader::pageLoaded, this, &HabitNavigator::takePage);
    connect(&m_loader, &HabitPageLoader::detailLoaded, this, &HabitNavigator::takeDetail);
    connect(&m_loader, &HabitPageLoader::detailGone, this, [this] { showDetailOf({}); });
    connect(&m_loader, &HabitPageLoader::failed, this, &HabitNavigator::failed);
    connect(&m_pane.list(), &HabitListView::currentHabitChanged, this, &HabitNavigator::showDetailOf);
    connect(&m_pane.list(), &HabitListView::foldingChanged, this, &HabitNavigator::saveFolding);
    connect(&m_detail, &HabitDetailView::monthsTurned, this, &HabitNavigator::turnMonths);
    m_registration = m_kit.bus().registerEventBus([this](const StoreChange &change) {
        if (change.touches(RecordKind::HabitFocus)) showFocus();
    });
}

void HabitNavigator::open()
{
    readFolding();
    if (!m_habitID.isEmpty()) showDetailOf(m_habitID); // as when the page was left
    m_loader.load();
}

void HabitNavigator::takePage(const HabitPageContent &content)
{
    m_pane.setContent(content, m_loader.firstWeekday());
    // The month of today may be another one now.
    if (std::exchange(m_today, content.today) != content.today && !m_habitID.isEmpty())
        showDetailOf(m_habitID);
    if (!m_wanted.isEmpty()) {
        showHabit(std::exchange(m_wanted, {}));
    } else if (!std::exchange(m_isRead, true) && m_pane.list().currentHabit().isEmpty()) {
        selectFirst(content);
    }
}

// Of a section that is not folded.
void HabitNavigator::selectFirst(const HabitPageContent &content)
{
    const QStringList folded = m_pane.list().foldedSections();
    for (const HabitSection &each : content.sections)
        if (!each.rows.isEmpty() && !folded.contains(each.sectionID))
            return m_pane.list().selectHabit(each.rows.first().habit.sid);
}

void HabitNavigator::showHabit(const QString &habitID)
{
    const HabitPageContent &content = m_pane.content();
    const HabitRow *row = content.rowOf(habitID);
    m_wanted = row ? QString{} : habitID;
    if (!row) return;
    m_isRead = true;
    m_pane.show(row->habit.isArchived ? HabitListModel::Shows::Archived : HabitListModel::Shows::Active);
    m_pane.list().selectHabit(habitID);
}

void HabitNavigator::showDetailOf(const QString &habitID)
{
    m_habitID = habitID;
    if (habitID.isEmpty()) m_detail.setContent(std::nullopt, m_loader.firstWeekday());
    m_loader.showDetail(habitID, m_month.value_or(m_loader.today()));
}

void HabitNavigator::takeDetail(const HabitDetailContent &content)
{
    if (content.habit.sid != m_habitID) return;
    m_detail.setContent(content, m_loader.firstWeekday());
    showFocus();
}

void HabitNavigator::showFocus()
{
    if (m_habitID.isEmpty()) return;
    m_detail.setFocusOfHabit(FocusReader::readHabit(m_habitID, m_kit.context()).value_or(FocusOfHabit{}));
}

void HabitNavigator::turnMonths(int turned)
{
    const year_month_day shown{m_month.value_or(m_loader.today())};
    const Day first{(shown.year() / shown.month() + months{turned}) / 1};
    const year_month_day now{m_loader.today()};
    const bool isNow = first == Day{now.year() / now.month() / 1};
    m_month = isNow ? std::nullopt : std::optional{first};
    m_loader.showDetail(m_habitID, first);
}

void HabitNavigator::readFolding()
{
    m_pane.list().setFoldedSections(
        m_kit.defaults().value(Settings::foldedHabitSections, m_kit.account().currentUserID()));
}

void HabitNavigator::saveFolding()
{
    m_kit.defaults().set(Settings::foldedHabitSections, m_pane.list().foldedSections(),
                         m_kit.account().currentUserID());
}
