#pragma once

#include "model/records/KWCalSubscriptionModel.h"
#include "model/records/KWFilterModel.h"
#include "model/records/KWProjectGroupModel.h"
#include "model/records/KWProjectModel.h"
#include "model/records/KWTagModel.h"
#include "model/records/KWTeamModel.h"

#include <QHash>
#include <QList>
#include <QSet>

#include <array>

class ObjectContext;

/// The parts of the sidebar that are read on their own.
enum class ProjectListSection { SmartLists, Filters, Tags, Subscriptions, Lists };

inline constexpr std::array allProjectListSections{
    ProjectListSection::SmartLists, ProjectListSection::Filters, ProjectListSection::Tags,
    ProjectListSection::Subscriptions, ProjectListSection::Lists};

/// What the sidebar is made from, in display order. A value: it may cross threads.
struct ProjectListContents {
    QString userID;

    // Of the smart lists.
    QSet<QString> hiddenSmartLists; ///< identifiers of those that are not wanted
    QSet<QString> hiddenIfEmpty;    ///< of those that come and go with their tasks

    // Of the lists.
    QList<KWProjectModel> projects; ///< open ones, the inbox first
    QList<KWProjectModel> closedProjects;
    QHash<QString, QString> iconNames; ///< of open lists, by id; see KWProject::iconName()
    QList<KWProjectGroupModel> groups;
    QList<KWTeamModel> teams;

    QList<KWTagModel> tags;
    QList<KWFilterModel> filters;
    bool hasSubscriptions = false;
    QList<KWCalSubscriptionModel> calendars; ///< subscribed ones
    QStringList hiddenCalendars;             ///< ids of those that the calendar does not show

    static ProjectListContents read(const QString &userID, ObjectContext &context);
    /// Reads that section of the user; the others stay.
    void readSection(ProjectListSection section, ObjectContext &context);
    /// Takes that section from other contents; answers whether it is another one now.
    bool takeSection(ProjectListSection section, const ProjectListContents &other);

    bool shows(const QString &smartListID) const { return !hiddenSmartLists.contains(smartListID); }
    bool operator==(const ProjectListContents &) const = default;
};

/// Whether calendars can be subscribed to: with every account, for this program reads them itself.
bool isCalSubAvailableForUser(const QString &userID, ObjectContext &context);
