#include "views/addfield/FieldPickers.h"

#include "views/theme/Metrics.h"

#include <QHBoxLayout>
#include <QKeyEvent>

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

constexpr int between = 4;

int widthOf(const QList<PickerButton *> &buttons, bool areSpelledOut)
{
    return std::accumulate(buttons.begin(), buttons.end(), 0, [=](int width, const PickerButton *each) {
        return width + each->widthOf(areSpelledOut) + between;
    });
}

} // namespace

FieldPickers::FieldPickers(QWidget *field)
    : QWidget(field)
    , m_date(new PickerButton{Icon::Today, this})
    , m_priority(new PickerButton{Icon::Flag, this})
    , m_list(new PickerButton{Icon::Inbox, this})
{
    m_date->setObjectName(u"pickDate"_s);
    m_priority->setObjectName(u"pickPriority"_s);
    m_list->setObjectName(u"pickList"_s);
    setCursor(Qt::ArrowCursor);
    setFocusProxy(m_date);
    auto *row = new QHBoxLayout{this};
    row->setContentsMargins(between, 0, 0, 0);
    row->setSpacing(between);
    for (PickerButton *each : buttons())
        row->addWidget(each);
}

void FieldPickers::setHasPriority(bool hasPriority)
{
    if (hasPriority == m_hasPriority) return;
    m_hasPriority = hasPriority;
    Q_EMIT widthChanged();
}

bool FieldPickers::haveChoice() const { return std::ranges::any_of(buttons(), &PickerButton::hasChoice); }

QList<PickerButton *> FieldPickers::offered() const
{
    QList<PickerButton *> offered = buttons();
    if (!m_hasPriority) offered.removeOne(m_priority);
    return offered;
}

bool FieldPickers::event(QEvent *event)
{
    const bool isHandled = QWidget::event(event);
    if (event->type() == QEvent::LayoutRequest) Q_EMIT widthChanged();
    return isHandled;
}

// Keys that no button takes go on to the field, but not those that would type into it.
void FieldPickers::keyPressEvent(QKeyEvent *event)
{
    const bool isCommand = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier);
    const bool edits = !event->text().isEmpty() && event->key() != Qt::Key_Escape && !isCommand;
    event->setAccepted(edits);
}

int FieldPickers::fitInto(int room)
{
    QList<PickerButton *> shown = offered();
    const bool areSpelledOut = widthOf(shown, true) <= room;
    while (!shown.isEmpty() && widthOf(shown, areSpelledOut) > room)
        shown.removeLast();
    for (PickerButton *each : buttons()) {
        each->setSpelledOut(areSpelledOut);
        each->setVisible(shown.contains(each));
    }
    layout()->activate();
    return widthOf(shown, areSpelledOut);
}
