#include "views/controls/PlainLabel.h"

#include <QLabel>

QLabel *makePlainLabel(const QString &text, Fonts::Role role, QPalette::ColorRole color)
{
    auto *label = new QLabel{text};
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setFont(Fonts::font(role));
    label->setForegroundRole(color);
    return label;
}
