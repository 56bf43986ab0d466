#include "views/taskdetail/DetailHeader.h"

#include "model/records/PriorityNames.h"
#include "model/settings/KWLocalizedString.h"
#include "model/text/RuleWording.h"
#include "views/controls/CheckBox.h"
#include "views/controls/IconButton.h"
#include "views/controls/MenuPlace.h"
#include "views/taskdetail/DateButton.h"
#include "views/taskdetail/TaskDetailData.h"
#include "views/tasklist/TaskDateText.h"
#include "views/theme/Icons.h"
#include "views/theme/Metrics.h"
#include "views/theme/Theme.h"

#include <QHBoxLayout>
#include <QMenu>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr int detailHeaderHeight = 46;
constexpr int dateOutset = 6; // the words stand where the title of a row does, their background around them

// How it repeats; a rule that cannot be read stands as it is.
QString repeatWords(const KWTaskModel &task, const CXTimeZone &local)
{
    const Result<CXRecurrenceRule> rule = CXRecurrenceRule::parse(task.repeatRule);
    if (!rule) return task.repeatRule;
    const bool hasZone = !task.isAllDay && !task.isFloating;
    const auto zone = hasZone ? CXTimeZone::named(task.timeZone) : std::nullopt;
    return RuleWording::words(*rule, zone.value_or(local), QLocale{});
}

} // namespace

DetailHeader::DetailHeader(CXClock &clock, QWidget *parent)
    : QWidget(parent)
    , m_clock(clock)
    , m_checkBox(new CheckBox{this})
    , m_date(new DateButton{this})
    , m_priority(new IconButton{Icon::Flag, KWLocalizedString("Priority"), this})
    , m_close(new IconButton{Icon::Close, KWLocalizedString("Close"), this})
{
    setObjectName(u"detailHeader"_s);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_checkBox->setObjectName(u"detailCheckbox"_s);
    m_checkBox->setAccessibleName(KWLocalizedString("Completed"));
    m_priority->setObjectName(u"detailPriority"_s);
    m_close->setObjectName(u"closeDetail"_s);
    m_close->hide();
    auto *layout = new QHBoxLayout{this};
    layout->addWidget(m_checkBox);
    layout->addWidget(m_date);
    layout->addStretch(1);
    layout->addWidget(m_priority);
    layout->addWidget(m_close);
    connect(m_close, &QAbstractButton::clicked, this, &DetailHeader::closeRequested);
    connect(m_checkBox, &QAbstractButton::clicked, this, &DetailHeader::completionToggled);
    connect(m_date, &QAbstractButton::clicked, this,
            [this] { Q_EMIT dateRequested(m_date->mapToGlobal(m_date->rect().bottomLeft())); });
    connect(m_priority, &QAbstractButton::clicked, this, &DetailHeader::openPriorities);
    dress();
}

void DetailHeader::dress()
{
    const int outset = (m_checkBox->sizeHint().width() - Metrics::scaled(Metrics::checkbox)) / 2;
    const int iconOutset = (m_priority->sizeHint().width() - Metrics::scaled(Metrics::icon)) / 2;
    auto *box = static_cast<QHBoxLayout *>(layout());
    box->setContentsMargins(QMargins{Metrics::sideMargin - outset, 0, Metrics::sideMargin - iconOutset, 1});
    box->setSpacing(Metrics::scaled(Metrics::titleIndent - Metrics::checkbox) - outset - dateOutset);
    updateGeometry();
}

void DetailHeader::setHasClose(bool hasClose) { m_close->setVisible(hasClose); }

void DetailHeader::setTask(const TaskDetailData &shown)
{
    const KWTaskModel &task = m_task = shown.task;
    for (QWidget *each : {static_cast<QWidget *>(m_checkBox), static_cast<QWidget *>(m_date),
                          static_cast<QWidget *>(m_priority)})
        each->setEnabled(shown.mayChange);
    m_checkBox->setStatus(task.status);
    m_checkBox->setPriority(task.priority);
    const bool isDone = task.status != KWTaskStatusOpen || task.isTrashed;
    m_date->setDate(detailDateText({task.startDate, task.endDate, task.isAllDay, isDone}, m_clock.now(),
                                   m_clock.zone(), QLocale{}),
                    repeatWords(task, m_clock.zone()));
    const QString words = KWLocalizedString("Priority: %1").arg(displayName(task.priority));
    m_priority->setAccessibleName(words);
    m_priority->setToolTip(words);
    const Theme &theme = Theme::current();
    m_priority->setColor(task.priority == KWTaskPriorityNone ? theme.faintText
                                                             : theme.priority(task.priority).mark);
}

QSize DetailHeader::sizeHint() const { return {Metrics::scaled(200), Metrics::scaled(detailHeaderHeight)}; }

void DetailHeader::openPriorities()
{
    auto *menu = new QMenu{this};
    for (const KWTaskPriority each : KWTaskPriorities) {
        QAction *action = menu->addAction(displayName(each));
        action->setCheckable(true);
        action->setChecked(each == m_task.priority);
        connect(action, &QAction::triggered, this, [this, each] { Q_EMIT priorityChosen(each); });
    }
    popUpAt(m_priority->rect(), *m_priority, Qt::BottomEdge, *menu);
}

void DetailHeader::paintEvent(QPaintEvent *)
{
    QPainter painter{this};
    painter.fillRect(QRect{Metrics::sideMargin, height() - 1, width() - 2 * Metrics::sideMargin, 1},
                     Theme::current().hairline);
}
