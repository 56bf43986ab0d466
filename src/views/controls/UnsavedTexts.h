#pragma once

#include <QStringList>

/// A widget in which text may stand that is not stored.
class UnsavedTextHolder {
public:
    virtual ~UnsavedTextHolder() = default;
    /// Hands over once more what is typed. What could not be stored even so.
    virtual QStringList unsavedTexts() = 0;
};

/// Those of all widgets of the program.
QStringList unsavedTexts();
