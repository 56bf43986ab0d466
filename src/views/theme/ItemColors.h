#pragma once

#include <QColor>
#include <QString>

/// A colour as a ground for digits and signs, which keep the AA contrast of WCAG 2.1 on it.
struct InkedColor {
    QColor fill; ///< the colour itself, or as little darker or lighter as that takes
    QColor ink;

    /// In the theme in force.
    static InkedColor of(const QColor &color);
};

/// How something of a list is painted on a page: a soft box in the list's colour with an edge at its
/// beginning. `text` and `note` keep the AA contrast of WCAG 2.1 on the fill, whatever the colour.
struct ItemColors {
    QColor fill;
    QColor edge;
    QColor text;
    QColor note; ///< times and what else is said beside the title

    /// In the theme in force. `color` is "#rrggbb"; an empty or unreadable one takes the accent.
    static ItemColors of(const QString &color);
    /// The edge alone: how a subscribed calendar is marked wherever it stands.
    static QColor edgeOf(const QString &color);
    /// The same for something that is closed: paler, and readable.
    static ItemColors ofClosed(const QString &color);
};
