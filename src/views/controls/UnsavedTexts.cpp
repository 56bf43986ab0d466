#include "views/controls/UnsavedTexts.h"

#include <QApplication>
#include <QPointer>

QStringList unsavedTexts()
{
    // What is saved on the way may take widgets away.
    QList<QPointer<QWidget>> widgets;
    for (QWidget *each : QApplication::allWidgets())
        widgets.append(each);
    QStringList texts;
    for (const QPointer<QWidget> &each : std::as_const(widgets))
        if (auto *holder = dynamic_cast<UnsavedTextHolder *>(each.data())) texts += holder->unsavedTexts();
    return texts;
}
