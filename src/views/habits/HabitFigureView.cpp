#include "views/habits/HabitFigureView.h"

#include "views/controls/PlainLabel.h"

#include <QLabel>
#include <QVBoxLayout>

HabitFigureView::HabitFigureView(const char *name, QWidget *parent)
    : QWidget(parent)
    , m_number(makePlainLabel({}, Fonts::Role::DetailTitle))
    , m_words(makePlainLabel({}, Fonts::Role::Secondary, QPalette::PlaceholderText))
    , m_more(makePlainLabel({}, Fonts::Role::Caption, QPalette::PlaceholderText))
{
    setObjectName(QLatin1StringView{name});
    auto *column = new QVBoxLayout{this};
    column->setContentsMargins({});
    column->setSpacing(0);
    for (QLabel *each : {m_number, m_words, m_more})
        column->addWidget(each);
    column->addStretch(1);
}

void HabitFigureView::setFigure(const QString &number, const QString &words, const QString &more)
{
    m_number->setText(number);
    m_words->setText(words);
    m_more->setText(more);
    m_more->setVisible(!more.isEmpty());
}
