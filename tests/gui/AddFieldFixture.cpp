#include "gui/AddFieldFixture.h"

#include "model/records/KWTask.h"
#include "views/main/MainWindow.h"
#include "views/tasklist/TaskListPane.h"

using namespace Qt::StringLiterals;

AddFieldFixture::AddFieldFixture()
{
    useOnThisComputer();
    openList(u"Inbox"_s);
    press(Qt::Key_N, Qt::ControlModifier);
}

KWNewTaskTextField &AddFieldFixture::field() { return window()->listPane().addField(); }

void AddFieldFixture::add(const QString &title)
{
    type(title);
    press(Qt::Key_Return);
}

QStringList AddFieldFixture::savedTitles()
{
    QStringList titles;
    for (const KWTaskModel &each : kit().context().models<KWTask>({.orderBy = "sortOrder"}))
        titles.append(each.title);
    return titles;
}
