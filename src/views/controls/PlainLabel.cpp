#include "views/controls/PlainLabel.h"

#include <QAccessible>
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

void sayIn(QLabel &label, const QString &sentence)
{
    label.setText(sentence);
    label.setAccessibleName(sentence);
    label.show();
    QAccessibleEvent announcement{&label, QAccessible::Alert};
    QAccessible::updateAccessibility(&announcement);
}
