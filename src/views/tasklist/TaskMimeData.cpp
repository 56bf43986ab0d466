#include "views/tasklist/TaskMimeData.h"

#include <QMimeData>

QStringList TaskMimeData::idsIn(const QMimeData &data)
{
    return QString::fromUtf8(data.data(type)).split(u'\n', Qt::SkipEmptyParts);
}

QMimeData *TaskMimeData::make(const QStringList &taskIDs, const QStringList &titles)
{
    auto *data = new QMimeData;
    data->setData(type, taskIDs.join(u'\n').toUtf8());
    data->setText(titles.join(u'\n'));
    return data;
}
