#include "model/records/KWListIdentifier.h"

#include "model/records/KWSmartProject.h"

using namespace Qt::StringLiterals;

KWListIdentifier KWListIdentifier::smartProject(const QString &smartProjectID)
{
    return {smartProjectID, KWListIdentifierType::SmartProject};
}

KWListIdentifier KWListIdentifier::project(const QString &projectID)
{
    return {projectID, KWListIdentifierType::Project};
}

KWListIdentifier KWListIdentifier::group(const QString &groupID)
{
    return {groupID, KWListIdentifierType::Group};
}

KWListIdentifier KWListIdentifier::tag(const QString &tagName)
{
    return {tagName, KWListIdentifierType::Tag};
}

KWListIdentifier KWListIdentifier::filter(const QString &filterID)
{
    return {filterID, KWListIdentifierType::Filter};
}

KWListIdentifier KWListIdentifier::calendar(const QString &subscriptionID)
{
    return {subscriptionID, KWListIdentifierType::Calendar};
}

KWListIdentifier KWListIdentifier::todayProject()
{
    return smartProject(KWSmartProject::today().identifier());
}

KWListIdentifier KWListIdentifier::monthCalendarViewID()
{
    return {u"calendar-month"_s, KWListIdentifierType::View};
}

QString KWListIdentifier::userDefaultEncode() const { return QString::number(int(type)) + u':' + entityID; }

std::optional<KWListIdentifier> KWListIdentifier::userDefaultDecode(const QString &text)
{
    const qsizetype colon = text.indexOf(u':');
    const int type = text.left(colon).toInt();
    if (colon <= 0 || text.left(colon) != QString::number(type) || colon + 1 == text.size())
        return std::nullopt;
    switch (KWListIdentifierType(type)) {
    case KWListIdentifierType::SmartProject:
    case KWListIdentifierType::Project:
    case KWListIdentifierType::Group:
    case KWListIdentifierType::Tag:
    case KWListIdentifierType::Filter:
    case KWListIdentifierType::Calendar:
    case KWListIdentifierType::View:
        return KWListIdentifier{text.mid(colon + 1), KWListIdentifierType(type)};
    }
    return std::nullopt;
}
