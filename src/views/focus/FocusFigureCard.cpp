#include "views/focus/FocusFigureCard.h"

#include "views/controls/PlainLabel.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

FocusFigureCard::FocusFigureCard(const char *name, QWidget *parent)
    : QFrame(parent)
    , m_number(makePlainLabel({}, Fonts::Role::PageTitle))
    , m_words(makePlainLabel({}, Fonts::Role::Secondary, QPalette::PlaceholderText))
{
    setObjectName(QLatin1StringView{name});
    auto *column = new QVBoxLayout{this};
    column->setContentsMargins(Metrics::gap + 2, Metrics::gap, Metrics::gap, Metrics::gap);
    column->setSpacing(2);
    column->addWidget(m_number);
    column->addWidget(m_words);
    column->addStretch(1);
}

void FocusFigureCard::setFigure(const QString &number, const QString &words, const QString &spoken)
{
    m_number->setText(number);
    m_words->setText(words);
    setAccessibleName(spoken);
}

void FocusFigureCard::paintEvent(QPaintEvent *)
{
    QPainter painter{this};
    Painting::roundedBox(painter, rect(), Metrics::popupRadius, Theme::current().sidebar);
}
