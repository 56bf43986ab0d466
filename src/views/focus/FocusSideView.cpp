#include "views/focus/FocusSideView.h"

#include "model/settings/KWLocalizedString.h"
#include "views/controls/IconButton.h"
#include "views/controls/PlainLabel.h"
#include "views/controls/ScrollColumn.h"
#include "views/controls/TabOrder.h"
#include "views/controls/TextButton.h"
#include "views/focus/FocusDaysChart.h"
#include "views/focus/FocusFigureCard.h"
#include "views/focus/FocusRecordDelegate.h"
#include "views/focus/FocusRecordList.h"
#include "views/focus/FocusStatisticsView.h"
#include "views/focus/FocusWording.h"
#include "views/theme/Metrics.h"
#include "views/theme/Theme.h"

#include <QLabel>
#include <QPainter>
#include <QStyle>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QLabel *makeSideCaption(const QString &text)
{
    QLabel *caption = makePlainLabel(text, Fonts::Role::CaptionStrong, QPalette::PlaceholderText);
    caption->setWordWrap(false);
    return caption;
}

} // namespace

FocusSideView::FocusSideView(QWidget *parent)
    : QWidget(parent)
    , m_close(new IconButton{Icon::Close, KWLocalizedString("Close")})
    , m_pomos(new FocusFigureCard{"focusPomosToday"})
    , m_focused(new FocusFigureCard{"focusTimeToday"})
    , m_add(new IconButton{Icon::Add, KWLocalizedString("Add Record")})
    , m_noRecords(makePlainLabel(KWLocalizedString("No records yet. What you focus on stands here."),
                                 Fonts::Role::Secondary, QPalette::PlaceholderText))
    , m_records(new FocusRecordList)
    , m_more(new TextButton{KWLocalizedString("Show More")})
    , m_week(new FocusDaysChart{"focusWeek", KWLocalizedString("Focus of the last 7 days")})
    , m_statistics(new FocusStatisticsView)
{
    setObjectName(u"focusSide"_s);
    setAccessibleName(KWLocalizedString("Records and Statistics"));
    m_more->setObjectName(u"moreFocusRecords"_s);
    m_more->setAccessibleName(m_more->text());
    auto *parts = new QWidget;
    auto *column = new QVBoxLayout{parts};
    const int side = Metrics::sideMargin - FocusRecordDelegate::inset; // rows stand out by as much
    column->setContentsMargins(side, Metrics::gap + Metrics::grid, side, Metrics::margin);
    column->setSpacing(0);
    column->addLayout(makeUpperPart());
    column->addWidget(m_records);
    column->addLayout(makeLowerPart());
    column->addStretch(1);
    auto *layout = new QVBoxLayout{this};
    layout->setContentsMargins({});
    layout->addWidget(new ScrollColumn{parts});
    setTabOrderOf(controlsInOrder(*parts));
    setFocusProxy(m_add);
    connect(m_close, &QAbstractButton::clicked, this, &FocusSideView::closeRequested);
    connect(m_add, &QAbstractButton::clicked, this, &FocusSideView::creationRequested);
    connect(m_more, &QAbstractButton::clicked, this, &FocusSideView::moreRecordsRequested);
    connect(m_statistics, &FocusStatisticsView::periodRequested, this, &FocusSideView::periodRequested);
}

QLayout *FocusSideView::makeUpperPart()
{
    auto *cards = new QHBoxLayout;
    cards->setSpacing(Metrics::gap);
    cards->addWidget(m_pomos, 1);
    cards->addWidget(m_focused, 1);
    auto *part = new QVBoxLayout;
    part->setContentsMargins(FocusRecordDelegate::inset, 0, FocusRecordDelegate::inset, 0);
    part->setSpacing(Metrics::gap);
    part->addLayout(makeHead());
    part->addLayout(cards);
    part->addLayout(makeRecordsHead());
    part->addWidget(m_noRecords);
    return part;
}

QLayout *FocusSideView::makeLowerPart()
{
    auto *part = new QVBoxLayout;
    part->setContentsMargins(FocusRecordDelegate::inset, Metrics::gap, FocusRecordDelegate::inset, 0);
    part->setSpacing(Metrics::gap);
    part->addWidget(m_more, 0, Qt::AlignHCenter);
    part->addWidget(makeSideCaption(KWLocalizedString("Last 7 days")), 0, Qt::AlignLeft);
    part->addWidget(m_week);
    part->addSpacing(Metrics::gap);
    part->addWidget(makeSideCaption(KWLocalizedString("Statistics")), 0, Qt::AlignLeft);
    part->addWidget(m_statistics);
    return part;
}

QLayout *FocusSideView::makeHead()
{
    m_close->setObjectName(u"closeFocusSide"_s);
    m_close->hide();
    auto *row = new QHBoxLayout;
    row->addWidget(makePlainLabel(KWLocalizedString("Today"), Fonts::Role::DetailTitle), 1);
    row->addWidget(m_close, 0, Qt::AlignTop);
    return row;
}

QLayout *FocusSideView::makeRecordsHead()
{
    m_add->setObjectName(u"addFocusRecord"_s);
    auto *row = new QHBoxLayout;
    row->addWidget(makeSideCaption(KWLocalizedString("Records")));
    row->addStretch(1);
    row->addWidget(m_add);
    return row;
}

void FocusSideView::setHasClose(bool hasClose) { m_close->setVisible(hasClose); }

void FocusSideView::setContent(const FocusPageContent &content, const CXTimeZone &zone)
{
    const Day today = content.today().day;
    showToday(content);
    m_noRecords->setVisible(content.records.isEmpty());
    m_records->setRecords(content.records, today, zone);
    m_more->setVisible(content.hasMoreRecords);
    m_week->setDays({content.week.begin(), content.week.end()}, today);
    m_statistics->setStatistics(content.statistics, today);
}

void FocusSideView::showToday(const FocusPageContent &content)
{
    const FocusDay &today = content.today();
    const QString number = locale().toString(today.pomos);
    const QString pomos = content.pomoGoal == 0 && today.pomos == 1 ? KWLocalizedString("Pomo")
                          : content.pomoGoal == 0
                              ? KWLocalizedString("Pomos")
                              : KWLocalizedString("Pomos, goal %1").arg(locale().toString(content.pomoGoal));
    m_pomos->setFigure(number, pomos, number + u' ' + pomos);
    const QString focused =
        content.focusGoal.count() == 0
            ? KWLocalizedString("focused")
            : KWLocalizedString("focused, goal %1").arg(FocusWording::length(content.focusGoal));
    m_focused->setFigure(FocusWording::length(today.focused), focused,
                         FocusWording::spokenLength(today.focused) + u' ' + focused);
}

void FocusSideView::paintEvent(QPaintEvent *)
{
    QPainter painter{this};
    painter.fillRect(rect(), Theme::current().window);
    // Over the session it has an edge of its own; beside it the splitter draws one.
    if (autoFillBackground())
        painter.fillRect(QStyle::visualRect(layoutDirection(), rect(), {0, 0, 1, height()}),
                         Theme::current().popupEdge);
}
