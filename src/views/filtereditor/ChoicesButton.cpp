#include "views/filtereditor/ChoicesButton.h"

#include "views/theme/Metrics.h"

#include <QKeyEvent>
#include <QMenu>

#include <algorithm>

namespace {

constexpr int widestSummary = 260;

bool givesCheckedAction(const QEvent &event)
{
    if (event.type() == QEvent::MouseButtonRelease) return true;
    if (event.type() != QEvent::KeyPress) return false;
    const int key = static_cast<const QKeyEvent &>(event).key();
    return key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace

ChoicesButton::ChoicesButton(const QString &question, const QList<Choice> &choices, QWidget *parent)
    : TextButton(question, Opens::Menu, parent), m_question(question), m_menu(new QMenu{this})
{
    m_menu->installEventFilter(this);
    for (const Choice &each : choices)
        addChoice(each);
    connect(this, &QAbstractButton::clicked, m_menu,
            [this] { m_menu->popup(mapToGlobal(rect().bottomLeft())); });
    showChosen();
}

void ChoicesButton::addChoice(const Choice &choice)
{
    QAction *action = m_menu->addAction(choice.title);
    action->setData(choice.id);
    action->setCheckable(true);
    connect(action, &QAction::toggled, this, [this] {
        showChosen();
        Q_EMIT changed();
    });
}

// A menu would close at the first choice.
bool ChoicesButton::eventFilter(QObject *watched, QEvent *event)
{
    QAction *active = m_menu->activeAction();
    if (watched != m_menu || !active || !givesCheckedAction(*event))
        return TextButton::eventFilter(watched, event);
    active->toggle();
    return true;
}

QStringList ChoicesButton::chosen() const
{
    QStringList ids;
    for (const QAction *each : m_menu->actions())
        if (each->isChecked()) ids.append(each->data().toString());
    return ids;
}

void ChoicesButton::setChosen(const QStringList &ids, const QString &unknownTitle)
{
    const auto knows = [this](const QString &id) {
        return std::ranges::any_of(m_menu->actions(),
                                   [&id](const QAction *each) { return each->data() == id; });
    };
    for (const QString &each : ids)
        if (!knows(each)) addChoice({each, unknownTitle.isEmpty() ? each : unknownTitle});
    for (QAction *each : m_menu->actions())
        each->setChecked(ids.contains(each->data().toString()));
}

void ChoicesButton::showChosen()
{
    QStringList titles;
    for (const QAction *each : m_menu->actions())
        if (each->isChecked()) titles.append(each->text());
    const QString summary = titles.isEmpty() ? m_question : titles.join(tr(", "));
    setText(fontMetrics().elidedText(summary, Qt::ElideRight, Metrics::scaled(widestSummary)));
    setAccessibleName(titles.isEmpty() ? m_question : tr("%1: %2").arg(m_question, summary));
    setToolTip(titles.isEmpty() ? QString{} : summary);
    updateGeometry();
}
