#include "capture/NewTaskCandidates.h"

#include "capture/NewTaskService.h"
#include "model/records/KWProject.h"
#include "model/records/KWProjectGroup.h"
#include "model/records/KWTag.h"
#include "model/records/KWTeam.h"
#include "model/records/KWTeamworker.h"
#include "support/StoreFixture.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

#include <QLocale>

#include <set>

using namespace Qt::StringLiterals;

namespace {

QString titlesOf(const QList<KWCandidateModel> &candidates)
{
    QStringList titles;
    for (const KWCandidateModel &each : candidates)
        titles.append(each.title);
    return titles.join(u", "_s);
}

KWTagModel tag(const StoreFixture &store, const QString &label, std::int64_t order,
               const QString &parent = {})
{
    KWTagModel model;
    model.userID = store.userID();
    model.label = label;
    model.name = KWTag::nameForLabel(label);
    model.sortOrder = order;
    model.parent = parent;
    model.color = u"#12a594"_s;
    return model;
}

KWTeamworkerModel member(const QString &list, std::int64_t userServerID, const QString &name)
{
    KWTeamworkerModel model;
    model.projectID = list;
    model.userServerID = userServerID;
    model.name = name;
    model.avatar = u"file:///%1.png"_s.arg(userServerID);
    return model;
}

} // namespace

class NewTaskCandidates_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void offersListsThatTakeTasksAsTheSidebarOrdersThem()
    {
        StoreFixture store;
        NewTaskCandidates candidates{store.kit()};
        const QStringList names{u"First"_s, u"Filed"_s, u"Team's"_s, u"Read"_s, u"Closed"_s, u"Last"_s};
        QHash<QString, QString> ids;
        for (const QString &each : names)
            ids.insert(each, store.makeList(each));
        saved(store, [&](ObjectContext &context) {
            KWTeamModel team;
            team.userID = store.userID();
            team.sid = u"team"_s;
            context.insert<KWTeam>(std::move(team));
            KWProjectGroupModel folder;
            folder.userID = store.userID();
            folder.sid = u"folder"_s;
            folder.sortOrder = (*context.find<KWProject>(ids[u"Last"_s]))->sortOrder + 1;
            context.insert<KWProjectGroup>(std::move(folder));
            const auto list = [&](const QString &name) { return context.find<KWProject>(ids[name]); };
            list(u"Filed"_s)->set(&KWProjectModel::groupID, u"folder"_s);
            list(u"Team's"_s)->set(&KWProjectModel::teamID, u"team"_s);
            list(u"Read"_s)->set(&KWProjectModel::permission, KWProjectPermissionRead);
            list(u"Closed"_s)->set(&KWProjectModel::closed, true);
            list(u"First"_s)->set(&KWProjectModel::color, u"#e54666"_s);
        });
        QCOMPARE(titlesOf(candidates.lists()), u"Inbox, Team's, First, Last, Filed"_s);
        QCOMPARE(titlesOf(candidates.lists({ids[u"First"_s], ids[u"Filed"_s]})), u"Inbox, Team's, Last"_s);
        QCOMPARE(candidates.lists()[2],
                 (KWCandidateModel{.title = u"First"_s, .color = u"#e54666"_s, .object = ids[u"First"_s]}));
    }

    void offersTagsBehindTheirParents()
    {
        StoreFixture store;
        saved(store, [&](ObjectContext &context) {
            context.insert<KWTag>(tag(store, u"Orphan"_s, 1, u"gone"_s));
            context.insert<KWTag>(tag(store, u"Office"_s, 2, u"work"_s));
            context.insert<KWTag>(tag(store, u"Home"_s, 3));
            context.insert<KWTag>(tag(store, u"Work"_s, 4));
            context.insert<KWTag>(tag(store, u"Errand"_s, 5));
        });
        NewTaskCandidates candidates{store.kit()};
        QCOMPARE(titlesOf(candidates.tags()), u"Home, Work, Office, Errand, Orphan"_s);
        QCOMPARE(candidates.tags()[2],
                 (KWCandidateModel{.title = u"Office"_s, .color = u"#12a594"_s, .object = u"office"_s}));
    }

    void offersTheMembersOfASharedList()
    {
        StoreFixture store;
        const QString list = store.makeList(u"Garden"_s);
        saved(store, [&](ObjectContext &context) {
            context.insert<KWTeamworker>(member(list, 7, u"Second"_s));
            context.insert<KWTeamworker>(member(list, 8, u"First"_s));
            KWTeamworkerModel gone = member(list, 9, u"Gone"_s);
            gone.isDeleted = true;
            context.insert<KWTeamworker>(gone);
        });
        NewTaskCandidates candidates{store.kit()};
        QVERIFY(candidates.allTeamworkers(list).isEmpty());
        setSaved<KWProject>(store, list, &KWProjectModel::isShared, true);
        QCOMPARE(titlesOf(candidates.allTeamworkers(list)), u"First, Second"_s);
        QCOMPARE(candidates.allTeamworkers(list).first(),
                 (KWCandidateModel{.title = u"First"_s, .imageURL = u"file:///8.png"_s, .object = u"8"_s}));
        QVERIFY(candidates.allTeamworkers(KWProject::inboxIDOfUser(store.userID())).isEmpty());
    }

    void tellsOfWhatAnybodyChanged()
    {
        StoreFixture store;
        NewTaskCandidates candidates{store.kit()};
        const QString list = store.makeList(u"Garden"_s);
        int told = 0;
        candidates.onChange = [&told] { ++told; };
        QCOMPARE(titlesOf(candidates.lists()), u"Inbox, Garden"_s);
        aTask("Water the plants").savedIn(store);
        QCOMPARE(told, 0);
        setSaved<KWProject>(store, list, &KWProjectModel::name, u"Field"_s);
        QCOMPARE(titlesOf(candidates.lists()), u"Inbox, Field"_s);
        saved(store, [&](ObjectContext &context) { context.insert<KWTag>(tag(store, u"Home"_s, 1)); });
        QCOMPARE(titlesOf(candidates.tags()), u"Home"_s);
        QCOMPARE(told, 2);
        QVERIFY(store.account().signOut());
        QVERIFY(candidates.lists().isEmpty() && candidates.tags().isEmpty());
    }

    // On every day of a week, and in a language with words of its own beside English.
    void offersWhatRecognitionUnderstands()
    {
        StoreFixture store;
        NewTaskCandidates candidates{store.kit()};
        NewTaskService service{store.kit()};
        const auto restore = qScopeGuard([] { QLocale::setDefault(QLocale::c()); });
        for (int day = 0; day < 7; ++day) {
            QLocale::setDefault(day % 2 ? QLocale{QLocale::Chinese} : QLocale::c());
            std::set<Instant> starts;
            for (const KWCandidateModel &each : candidates.dates()) {
                const auto found = service.recognize(u"rest *%1 then"_s.arg(each.title));
                QCOMPARE(found.title, u"rest then"_s);
                QCOMPARE(found.date.recognizedStrings.first()->text(), u'*' + each.title);
                QCOMPARE(each.object, each.title);
                starts.insert(found.date.dateTimeReminderModel->startDateTime->date);
            }
            QVERIFY2(starts.size() >= 8, "today, the seven days after it");
            store.clock.advance(std::chrono::days{1});
        }
        QCOMPARE(candidates.dates()[2].title, u"Thursday"_s); // the day after this Wednesday

        for (const KWCandidateModel &each : candidates.priorities())
            QCOMPARE(service.recognize(u"rest !"_s + each.title).priority,
                     KWTaskPriority(each.object.toInt()));
        QCOMPARE(titlesOf(candidates.priorities()), u"High, Medium, Low, None"_s);
        QCOMPARE(titlesOf(candidates.priorities({KWTaskPriorityHigh})), u"Medium, Low, None"_s);
    }
};

ORVANE_TEST(NewTaskCandidates_test)
#include "NewTaskCandidates_test.moc"
