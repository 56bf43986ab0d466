#pragma once

#include <QList>
#include <QString>

/// One thing that can be typed into an add field.
struct TitleLesson {
    QString example; ///< as it is typed
    QString meaning; ///< what it does, in the language of the interface
    bool isHint;     ///< worth a place in the empty field
};

/// From the most useful on. The examples stay English, which is always understood.
QList<TitleLesson> titleLessons();
