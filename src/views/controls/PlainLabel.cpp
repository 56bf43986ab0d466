#include "views/controls/PlainLabel.h"

#include "views/theme/ThemeConfigurator.h"

#include <QAccessible>
#include <QLabel>

QLabel *makePlainLabel(const QString &text, Fonts::Role role, QPalette::ColorRole color)
{
    auto *label = new QLabel{text};
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    const auto dress = [label, role] { label->setFont(Fonts::font(role)); };
    dress();
    QObject::connect(&ThemeConfigurator::shared(), &ThemeConfigurator::themeChanged, label, dress);
    label->setForegroundRole(color);
    return label;
}

QLabel *makeProblemLine(const char *name)
{
    QLabel *line = makePlainLabel({}, Fonts::Role::Secondary, QPalette::BrightText);
    line->setObjectName(QLatin1StringView{name});
    line->hide();
    return line;
}

void sayIn(QLabel &label, const QString &sentence)
{
    label.setText(sentence);
    label.setAccessibleName(sentence);
    label.show();
    QAccessibleEvent announcement{&label, QAccessible::Alert};
    QAccessible::updateAccessibility(&announcement);
}
