#include "views/calendar/ShownPopover.h"

#include "model/settings/KWLocalizedString.h"
#include "views/controls/ChoiceDelegate.h"
#include "views/controls/PlainLabel.h"
#include "views/controls/SegmentedControl.h"
#include "views/controls/TabOrder.h"
#include "views/controls/TextButton.h"
#include "views/theme/Fonts.h"
#include "views/theme/Icons.h"
#include "views/theme/Metrics.h"
#include "views/theme/Theme.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListView>
#include <QPainter>
#include <QScreen>
#include <QStandardItemModel>

using namespace Qt::StringLiterals;

namespace {

using Shown = CalendarChoice::Shown;

constexpr int shownWidth = 280;
constexpr int highestRows = 420;
constexpr int folderIndent = 20;

enum ShownRole { ChoiceRole = Qt::UserRole, IndentRole, PartlyRole };

/// The rows of choices, with headings between them and those of a folder set in.
class ShownDelegate : public ChoiceDelegate {
public:
    using ChoiceDelegate::ChoiceDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        if (!index.data(ChoiceRole).isValid()) return paintHeading(*painter, option, index);
        QStyleOptionViewItem row = option;
        const int indent = Metrics::scaled(index.data(IndentRole).toInt());
        row.rect = QStyle::visualRect(option.direction, option.rect, option.rect.adjusted(indent, 0, 0, 0));
        ChoiceDelegate::paint(painter, row, index);
        if (index.data(PartlyRole).toBool()) paintPartly(*painter, option);
    }

protected:
    // What a press or a key does is decided in one place, the frame.
    bool editorEvent(QEvent *, QAbstractItemModel *, const QStyleOptionViewItem &,
                     const QModelIndex &) override
    {
        return false;
    }

private:
    static void paintHeading(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index)
    {
        painter.setPen(Theme::current().secondaryText);
        Fonts::drawLine(painter, Fonts::Role::CaptionStrong,
                        option.rect.adjusted(Metrics::gap, Metrics::grid, -Metrics::gap, 0),
                        QStyle::visualAlignment(option.direction, Qt::AlignLeft), index.data().toString());
    }

    // A dash where a tick would stand.
    static void paintPartly(QPainter &painter, const QStyleOptionViewItem &option)
    {
        const int side = Metrics::scaled(Metrics::icon);
        const QRect mark{option.rect.right() - Metrics::gap - side, option.rect.top(), side,
                         option.rect.height()};
        const QRect dash{mark.left() + side / 4, mark.center().y(), side / 2, 2};
        painter.fillRect(QStyle::visualRect(option.direction, option.rect, dash),
                         Theme::current().accentText);
    }
};

} // namespace

ShownPopover::ShownPopover(QWidget *parent)
    : PopupFrame(parent)
    , m_list(new QListView)
    , m_rows(new QStandardItemModel{this})
    , m_colors(new SegmentedControl{{KWLocalizedString("List"), KWLocalizedString("Priority")}})
    , m_showAll(new TextButton{KWLocalizedString("Show All")})
{
    setObjectName(u"shownPopover"_s);
    setAccessibleName(KWLocalizedString("Shown on the Calendar"));
    m_list->setObjectName(u"shownList"_s);
    m_list->setAccessibleName(KWLocalizedString("Shown on the Calendar"));
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->viewport()->setAutoFillBackground(false);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_list->setItemDelegate(new ShownDelegate{m_list});
    m_list->setModel(m_rows);
    m_list->installEventFilter(this);
    m_colors->setObjectName(u"shownColors"_s);
    m_showAll->setObjectName(u"shownShowAll"_s);

    auto *head = new QHBoxLayout;
    head->setContentsMargins(Metrics::gap, 0, 0, 0);
    head->addWidget(makePlainLabel(KWLocalizedString("Shown"), Fonts::Role::BodyStrong), 1);
    head->addWidget(m_showAll);
    auto *colors = new QHBoxLayout;
    colors->setContentsMargins(Metrics::gap, Metrics::grid, Metrics::gap - Metrics::grid, 0);
    colors->addWidget(makePlainLabel(KWLocalizedString("Color by"), Fonts::Role::Body), 1);
    colors->addWidget(m_colors);
    auto *column = new QVBoxLayout{this};
    column->setContentsMargins(Metrics::grid, Metrics::gap, Metrics::grid, Metrics::gap);
    column->setSpacing(Metrics::grid);
    column->addLayout(head);
    column->addWidget(m_list);
    column->addLayout(colors);
    setTabOrderOf(controlsInOrder(*this));

    connect(m_list, &QListView::clicked, this, &ShownPopover::toggle);
    connect(m_showAll, &TextButton::clicked, this, [this] {
        m_list->setFocus(Qt::OtherFocusReason);
        Q_EMIT allRequested();
    });
    connect(m_colors, &SegmentedControl::picked, this,
            [this](int index) { Q_EMIT colorPicked(KWCalendarColorBy(index)); });
}

void ShownPopover::setChoices(const CalendarChoices &choices, KWCalendarColorBy colorBy)
{
    const int current = std::max(0, m_list->currentIndex().row());
    m_choices = choices.all();
    m_rows->clear();
    for (qsizetype i = 0; i < m_choices.size(); ++i) {
        using enum CalendarChoice::Kind;
        const auto kind = m_choices[i].kind;
        const auto before = i == 0 ? Completed : m_choices[i - 1].kind;
        const auto isOfList = [](CalendarChoice::Kind which) { return which == List || which == Folder; };
        if (isOfList(kind) && !isOfList(before)) addHeading(KWLocalizedString("Lists"));
        if (kind == Calendar && before != Calendar) addHeading(KWLocalizedString("Calendars"));
        addRow(m_choices[i]);
    }
    m_list->setCurrentIndex(m_rows->index(std::min(current, m_rows->rowCount() - 1), 0));
    m_colors->choose(colorBy);
    m_showAll->setVisible(choices.hideSomething());
    if (isVisible()) return;
    fitRows();
}

void ShownPopover::addHeading(const QString &text)
{
    auto *heading = new QStandardItem{text};
    heading->setFlags(Qt::NoItemFlags);
    m_rows->appendRow(heading);
}

void ShownPopover::addRow(const CalendarChoice &choice)
{
    auto *row = new QStandardItem{choice.title};
    row->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    row->setCheckState(choice.shown == Shown::All    ? Qt::Checked
                       : choice.shown == Shown::None ? Qt::Unchecked
                                                     : Qt::PartiallyChecked);
    row->setData(int(&choice - m_choices.constData()), ChoiceRole);
    row->setData(choice.isInFolder ? folderIndent : 0, IndentRole);
    row->setData(choice.shown == Shown::Some, PartlyRole);
    row->setData(choice.shown == Shown::All, ChoiceDelegate::CheckedRole);
    using enum CalendarChoice::Kind;
    if (choice.kind == List || choice.kind == Calendar) row->setData(choice.color, ChoiceDelegate::ColorRole);
    m_rows->appendRow(row);
}

// What is shown in part is shown whole first.
void ShownPopover::toggle(const QModelIndex &index)
{
    const QVariant choice = index.data(ChoiceRole);
    if (!choice.isValid()) return;
    const CalendarChoice chosen = m_choices[choice.toInt()];
    Q_EMIT toggled(chosen, chosen.shown != Shown::All);
}

bool ShownPopover::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_list || event->type() != QEvent::KeyPress)
        return PopupFrame::eventFilter(watched, event);
    switch (static_cast<QKeyEvent *>(event)->key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        toggle(m_list->currentIndex());
        return true;
    default:
        return false;
    }
}

void ShownPopover::fitRows()
{
    const int highest = std::min(Metrics::scaled(highestRows), screen()->availableGeometry().height() / 2);
    m_list->setFixedHeight(heightOfRows(*m_list, highest));
}

void ShownPopover::popUp(const QRect &button)
{
    const QSize size{Metrics::scaled(shownWidth), sizeHint().height()};
    place({isRightToLeft() ? button.left() : button.right() + 1 - size.width(), button.bottom() + 1}, size);
    show();
    m_list->setFocus(Qt::PopupFocusReason);
}
