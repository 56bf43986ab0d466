#pragma once

#include "views/theme/Fonts.h"

#include <QPalette>

class QLabel;

/// Words that break into lines where they must, never read as rich text. They take their colour from the
/// application's palette and their size from the role, and so follow the theme. Whoever puts the label into a
/// layout owns it.
QLabel *makePlainLabel(const QString &text, Fonts::Role role,
                       QPalette::ColorRole color = QPalette::WindowText);

/// A line that says what cannot be done; hidden until sayIn() says something. `name` is its object name.
QLabel *makeProblemLine(const char *name);

/// Shows the label with this sentence, and screen readers say it.
void sayIn(QLabel &label, const QString &sentence);
