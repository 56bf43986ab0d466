#include "views/controls/UnsavedTexts.h"

#include <QApplication>

QStringList unsavedTexts()
{
    QStringList texts;
    for (QWidget *each : QApplication::allWidgets())
        if (auto *holder = dynamic_cast<UnsavedTextHolder *>(each)) texts += holder->unsavedTexts();
    return texts;
}
