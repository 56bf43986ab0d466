#include "focus/FocusTarget.h"

using namespace Qt::StringLiterals;

QString FocusTarget::text() const
{
    switch (kind) {
    case Kind::Task:
        return u"task:"_s + entityID;
    case Kind::Habit:
        return u"habit:"_s + entityID;
    case Kind::None:
        break;
    }
    return {};
}

FocusTarget FocusTarget::fromText(QStringView text)
{
    const qsizetype colon = text.indexOf(u':');
    const QString entityID = text.sliced(colon + 1).toString();
    if (colon < 0 || entityID.isEmpty()) return {};
    const QStringView kind = text.first(colon);
    if (kind == u"task") return task(entityID);
    if (kind == u"habit") return habit(entityID);
    return {};
}
