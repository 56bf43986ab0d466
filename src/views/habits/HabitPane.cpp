#include "views/habits/HabitPane.h"

#include "model/settings/KWLocalizedString.h"
#include "views/controls/IconButton.h"
#include "views/controls/PlainLabel.h"
#include "views/controls/TextButton.h"
#include "views/habits/HabitListView.h"
#include "views/theme/Metrics.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

HabitPane::HabitPane(QWidget *parent)
    : QWidget(parent)
    , m_title(makePlainLabel({}, Fonts::Role::PageTitle))
    , m_back(new TextButton{KWLocalizedString("Back to Habits")})
    , m_add(new IconButton{Icon::Add, KWLocalizedString("New Habit")})
    , m_menu(new IconButton{Icon::More, KWLocalizedString("More")})
    , m_list(new HabitListView{m_model})
    , m_emptyText(makePlainLabel({}, Fonts::Role::BodyStrong))
    , m_emptyHint(makePlainLabel({}, Fonts::Role::Body, QPalette::PlaceholderText))
    , m_first(new QPushButton{KWLocalizedString("New Habit…")})
    , m_pages(new QStackedWidget)
{
    setObjectName(u"habitPane"_s);
    constexpr int rowSide = Metrics::margin - Metrics::rowOutset;
    m_pages->addWidget(m_list);
    m_pages->addWidget(makeEmptyPage());
    auto *rows = new QHBoxLayout;
    rows->setContentsMargins(rowSide, 0, rowSide, 0);
    rows->addWidget(m_pages);
    auto *column = new QVBoxLayout{this};
    column->setContentsMargins(0, Metrics::gap + Metrics::grid, 0, 0);
    column->setSpacing(Metrics::grid);
    column->addLayout(makeHeader());
    column->addLayout(rows, 1);
    setFocusProxy(m_list);
    connect(m_add, &QAbstractButton::clicked, this, &HabitPane::creationRequested);
    connect(m_first, &QAbstractButton::clicked, this, &HabitPane::creationRequested);
    connect(m_menu, &QAbstractButton::clicked, this, &HabitPane::menuRequested);
    connect(m_back, &QAbstractButton::clicked, this, [this] {
        show(HabitListModel::Shows::Active);
        focusProxy()->setFocus(Qt::OtherFocusReason);
    });
    refresh();
}

QLayout *HabitPane::makeHeader()
{
    m_title->setWordWrap(false);
    m_add->setObjectName(u"newHabit"_s);
    m_menu->setObjectName(u"habitPageMenu"_s);
    m_back->setObjectName(u"backToHabits"_s);
    auto *row = new QHBoxLayout;
    row->setContentsMargins(Metrics::margin, 0, Metrics::margin, 0);
    row->setSpacing(Metrics::grid);
    row->addWidget(m_title, 1);
    for (QWidget *each :
         {static_cast<QWidget *>(m_back), static_cast<QWidget *>(m_add), static_cast<QWidget *>(m_menu)})
        row->addWidget(each);
    return row;
}

QWidget *HabitPane::makeEmptyPage()
{
    auto *page = new QWidget;
    page->setObjectName(u"noHabits"_s);
    m_first->setObjectName(u"firstHabit"_s);
    m_first->setAccessibleName(m_first->text());
    m_first->setAutoDefault(true);
    for (QLabel *each : {m_emptyText, m_emptyHint})
        each->setAlignment(Qt::AlignHCenter);
    auto *column = new QVBoxLayout{page};
    column->setSpacing(Metrics::gap);
    column->addStretch(1);
    column->addWidget(m_emptyText);
    column->addWidget(m_emptyHint);
    column->addWidget(m_first, 0, Qt::AlignHCenter);
    column->addStretch(2);
    return page;
}

QWidget &HabitPane::menuButton() const { return *m_menu; }

void HabitPane::setContent(const HabitPageContent &content, std::chrono::weekday firstWeekday)
{
    m_content = content;
    m_firstWeekday = firstWeekday;
    refresh();
}

void HabitPane::show(HabitListModel::Shows shows)
{
    m_shows = shows;
    refresh();
}

void HabitPane::refresh()
{
    const bool isArchive = m_shows == HabitListModel::Shows::Archived;
    m_title->setText(isArchive ? KWLocalizedString("Archived Habits") : KWLocalizedString("Habits"));
    m_back->setVisible(isArchive);
    m_add->setVisible(!isArchive);
    m_menu->setVisible(!isArchive);
    m_emptyText->setText(isArchive ? KWLocalizedString("Nothing is archived")
                                   : KWLocalizedString("No habits yet"));
    m_emptyHint->setText(
        isArchive ? KWLocalizedString("A habit that you archive keeps its days and waits here.")
                  : KWLocalizedString("What would you like to do day by day? Add it, and check it in here."));
    m_first->setVisible(!isArchive);
    m_model.setContent(m_content, m_shows, m_firstWeekday);
    const bool isEmpty = isArchive ? m_content.archived.isEmpty() : !m_content.hasHabits();
    const bool hadKeyboard = m_pages->currentWidget()->hasFocus() || hasFocus() || m_first->hasFocus();
    QWidget *taker = m_list;
    if (isEmpty) taker = isArchive ? static_cast<QWidget *>(m_back) : m_first;
    m_pages->setCurrentIndex(isEmpty ? 1 : 0);
    if (focusProxy() == taker) return;
    setFocusProxy(taker);
    if (hadKeyboard) taker->setFocus(Qt::OtherFocusReason);
}

void HabitPane::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    Q_EMIT shownChanged();
}

void HabitPane::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    Q_EMIT shownChanged();
}

void HabitPane::keyPressEvent(QKeyEvent *event)
{
    const bool isPlain = !(event->modifiers() & ~Qt::KeypadModifier);
    if (event->key() == Qt::Key_Insert && isPlain && m_shows == HabitListModel::Shows::Active)
        Q_EMIT creationRequested();
    else
        QWidget::keyPressEvent(event);
}
