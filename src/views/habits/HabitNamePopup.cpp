#include "views/habits/HabitNamePopup.h"

#include "views/controls/PlainLabel.h"
#include "views/theme/Metrics.h"

#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int namePopupWidth = 260;

} // namespace

HabitNamePopup::HabitNamePopup(const QString &question, const QString &name, QWidget *parent)
    : PopupFrame(parent), m_field(new QLineEdit{name}), m_problem(makeProblemLine("habitNameProblem"))
{
    setObjectName(u"habitNamePopup"_s);
    setAccessibleName(question);
    m_field->setObjectName(u"habitNameField"_s);
    m_field->setAccessibleName(question);
    m_field->setPlaceholderText(question);
    auto *column = new QVBoxLayout{this};
    column->setContentsMargins(Metrics::gap, Metrics::gap, Metrics::gap, Metrics::gap);
    column->addWidget(m_field);
    column->addWidget(m_problem);
    connect(m_field, &QLineEdit::returnPressed, this, [this] { Q_EMIT nameTyped(m_field->text()); });
}

void HabitNamePopup::popUp(const QPoint &position)
{
    setFixedWidth(Metrics::scaled(namePopupWidth));
    place(position, {width(), sizeHint().height()});
    show();
    m_field->setFocus(Qt::PopupFocusReason);
    m_field->selectAll();
}

void HabitNamePopup::showProblem(const QString &sentence)
{
    sayIn(*m_problem, sentence);
    layout()->activate();
    resize(width(), sizeHint().height());
}
