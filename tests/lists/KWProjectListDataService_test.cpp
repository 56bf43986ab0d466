#include "lists/KWProjectListDataService.h"

#include "lists/SidebarRecounts.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWCalSubscription.h"
#include "model/records/KWFilter.h"
#include "model/records/KWProject.h"
#include "model/records/KWProjectGroup.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTag.h"
#include "model/records/KWTeam.h"
#include "support/Answers.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

namespace {

/// "Home(Garden Kitchen) Work": the titles of the children, and theirs in brackets.
QString outline(const KWProjectListNode &node)
{
    QStringList parts;
    for (const auto &each : node.children()) {
        const QString inner = outline(*each);
        parts << each->title() + (inner.isEmpty() ? QString{} : u'(' + inner + u')');
    }
    return parts.join(u' ');
}

KWProjectModel list(const char *name, std::int64_t order, const char *folder = "none")
{
    KWProjectModel project;
    project.sid = project.name = QString::fromLatin1(name);
    project.sortOrder = order;
    project.groupID = QString::fromLatin1(folder);
    return project;
}

KWProjectGroupModel folder(const char *name, std::int64_t order)
{
    KWProjectGroupModel group;
    group.sid = group.name = QString::fromLatin1(name);
    group.sortOrder = order;
    return group;
}

KWTagModel tag(const char *label, std::int64_t order, const char *parent = "")
{
    KWTagModel tag;
    tag.sortOrder = order;
    tag.label = QString::fromLatin1(label);
    tag.name = KWTag::nameForLabel(tag.label);
    tag.parent = QString::fromLatin1(parent);
    return tag;
}

template <class Record>
void add(const QList<typename Record::Model> &models, StoreFixture &store)
{
    saved(store, [&](ObjectContext &context) {
        for (typename Record::Model each : models) {
            each.userID = store.userID();
            context.insert<Record>(each);
        }
    });
}

} // namespace

class KWProjectListDataService_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;
    std::unique_ptr<KWProjectListDataService> m_service;

    // Of the center, as the store has it now.
    QString centerNow()
    {
        m_service->rebuildNow(m_store->userID());
        return outline(m_service->centerNode());
    }
    void setVisibility(KWSmartProjectVisibility visibility, const KWSmartProject &smart)
    {
        saved(*m_store, [&](ObjectContext &context) {
            KWSmartProject::updateVisibility(visibility, smart.identifier(), m_store->userID(), context);
        });
    }

private Q_SLOTS:
    void init()
    {
        m_store = std::make_unique<StoreFixture>();
        m_service = std::make_unique<KWProjectListDataService>(m_store->kit().manager());
    }
    void cleanup()
    {
        m_service.reset();
        m_store.reset();
    }

    void buildsTheTreeAndEmptiesIt()
    {
        StoreFixture &store = *m_store;
        add<KWProject>({list("Last", 90), list("First", -5), list("Garden", 1, "House"),
                        list("Stray", 2, "gone"), list("Kitchen", 3, "House"), list("Closed", 4),
                        list("Deleted", 5), list("Theirs", 6)},
                       store);
        add<KWProjectGroup>({folder("House", 0), folder("Empty", 50), folder("Theirs", 3)}, store);
        add<KWTag>({tag("Bread", 3, "food"), tag("Leek", 0, "food"), tag("Errand", 1), tag("Food", 2),
                    tag("Self", 5, "self"), tag("Stray", 4, "gone"), tag("Deleted", 6)},
                   store);
        const auto theirs = u"Theirs"_s;
        saved(store, [&](ObjectContext &context) {
            context.find<KWProject>(u"Closed"_s)->set(&KWProjectModel::closed, true);
            context.find<KWProject>(u"Deleted"_s)->markDelete();
            KWTag::findTagNamed(u"deleted"_s, store.userID(), context)->markDelete();
            context.find<KWProject>(theirs)->set(&KWProjectModel::userID, theirs);
            context.find<KWProjectGroup>(theirs)->set(&KWProjectGroupModel::userID, theirs);
        });
        const KWProjectListNode *section = &m_service->tagNode();
        QCOMPARE(centerNow(), u"Lists(First House(Garden Kitchen) Stray Empty Last Archive(Closed)) "
                              "Tags(Errand Food(Leek Bread) Stray Self) Filters(No filters yet) "
                              "Subscriptions"_s);
        QCOMPARE(outline(m_service->topNode()), u"Inbox Today Tomorrow Next 7 Days Calendar Focus Habits"_s);
        QCOMPARE(outline(m_service->bottomNode()), u"Completed Trash Summary"_s);
        const QList<KWListIdentifier> all = m_service->lists();
        QCOMPARE(all.size(), 7 + 6 + 2 + 6 + 3); // of the top, lists, folders, tags, of the bottom
        for (const KWListIdentifier &each : all)
            QVERIFY(m_service->nodeFor(each) && m_service->nodeFor(each)->listIdentifier() == each);
        QVERIFY(!m_service->nodeFor(KWListIdentifier::project(u"House"_s)));
        // The header of a section is no list.
        QVERIFY(!m_service->nodeFor(KWListIdentifier::smartProject(KWSmartProject::tag().identifier())));

        const KWListIdentifier garden = KWListIdentifier::project(u"Garden"_s);
        QCOMPARE(m_service->nodeFor(garden)->iconName(), u"list"_s);
        setSaved<KWProject>(store, u"Garden"_s, &KWProjectModel::isShared, true);
        centerNow();
        QCOMPARE(m_service->nodeFor(garden)->iconName(), u"shared"_s);

        setSaved<KWProject>(store, u"Last"_s, &KWProjectModel::name, u"End"_s);
        QVERIFY(centerNow().startsWith(u"Lists(First House(Garden Kitchen) Stray Empty End Arc"_s));
        QCOMPARE(&m_service->tagNode(), section);
        m_service->clear();
        QVERIFY(m_service->lists().isEmpty());
    }

    void hiddenSectionsHaveNoNodesAndEmptyOnesSayIt()
    {
        QCOMPARE(centerNow(), u"Lists(No lists yet) Tags(No tags yet) Filters(No filters yet) "
                              "Subscriptions"_s);
        add<KWTag>({tag("Errand", 1)}, *m_store);
        add<KWFilter>({KWFilterModel{}}, *m_store);
        setVisibility(KWSmartProjectVisibilityHidden, KWSmartProject::tag());
        setVisibility(KWSmartProjectVisibilityHidden, KWSmartProject::filter());
        QCOMPARE(centerNow(), u"Lists(No lists yet) Tags Filters Subscriptions"_s);
        setVisibility(KWSmartProjectVisibilityShownIfNotEmpty, KWSmartProject::tag());
        QVERIFY(centerNow().contains(u"Tags(Errand) Filters Sub"_s));
        KWCalSubscriptionModel town;
        town.sid = u"town"_s;
        town.name = u"Town"_s;
        add<KWCalSubscription>({town}, *m_store);
        QVERIFY(centerNow().endsWith(u"Subscriptions(Town)"_s));
    }

    void teamsHaveGroupsOfTheirOwn()
    {
        KWTeamModel team;
        team.sid = team.name = u"Crew"_s;
        add<KWTeam>({team}, *m_store);
        KWProjectModel theirs = list("Plan", 1);
        theirs.teamID = team.sid;
        add<KWProject>({list("Mine", 2), theirs}, *m_store);
        QVERIFY(centerNow().startsWith(u"Lists(Crew(Plan) Personal(Mine)) "_s));
    }

    void aBackgroundRebuildReplacesAllAtOnceAndOnlyWhatIsAnother()
    {
        m_service->rebuildNow(m_store->userID());
        int replaced = 0;
        m_service->onReplaced = [&replaced] { ++replaced; };
        const KWProjectListNode *holder = m_service->tagNode().children().front().get();
        add<KWProject>({list("Work", 1)}, *m_store);
        m_service->rebuild(m_store->userID(), std::array{ProjectListSection::Lists});
        m_service->rebuild(m_store->userID(), std::array{ProjectListSection::Tags}); // and the lists too
        QCOMPARE(outline(m_service->listNode()), u"No lists yet"_s);
        QTRY_COMPARE(replaced, 1);
        QCOMPARE(outline(m_service->listNode()), u"Work"_s);
        QCOMPARE(m_service->tagNode().children().front().get(), holder);

        m_service->rebuild(m_store->userID(), allProjectListSections);
        m_service.reset(); // and what is read then finds nobody
        m_store->kit().manager().threadPool().waitForDone();
        QCoreApplication::processEvents();
        QCOMPARE(replaced, 1);
    }

    void aNodeIsNamedInPlace()
    {
        add<KWProjectGroup>({folder("House", 0)}, *m_store);
        m_service->rebuildNow(m_store->userID());
        m_service->setUnnamedNode(KWProjectListNodeType::project,
                                  m_service->listNode().children().front().get());
        QCOMPARE(m_service->listNode().children().front()->children().size(), std::size_t{1});
        m_service->setUnnamedNode(KWProjectListNodeType::tag, &m_service->tagNode());
        QVERIFY(m_service->listNode().children().front()->children().empty());
        QCOMPARE(m_service->tagNode().children().front()->title(), QString{}); // in place of the holder
        QVERIFY(!m_service->tagNode().children().front()->listIdentifier());
        m_service->setUnnamedNode(KWProjectListNodeType::none);
        QCOMPARE(outline(m_service->tagNode()), u"No tags yet"_s);
    }

    void recountsWhatTheNotificationCanHaveChanged()
    {
        using Type = KWProjectListNodeType;
        // smart, list, folder, tag, filter, calendar
        constexpr std::array kinds{Type::smartProject, Type::project, Type::group,
                                   Type::tag,          Type::filter,  Type::calsub_url};
        const auto recounting = [&kinds](const QString &notification) {
            return joined(kinds, [&](Type type) {
                return recountsOn(notification, type) ? QString::number(int(type)) : u"-"_s;
            });
        };
        QCOMPARE(recounting(KWNewDayComesNotification), u"0 - - 4 5 -"_s);
        QCOMPARE(recounting(KWSyncDidPullHabitsNotification), u"0 - - - - -"_s);
        QCOMPARE(recounting(KWUserSettingsDidChangeNotification), u"0 - - - 5 -"_s);
        QCOMPARE(recounting(KWCalSubDidPullEventsNotification), u"0 - - - 5 10"_s);
        QCOMPARE(recounting(KWKWRepeatInstanceGeneratedNotification), u"0 1 2 4 5 10"_s);
        QCOMPARE(recounting(KWThemeDidChangeNotification), u"- - - - - -"_s);
    }
};

ORVANE_TEST(KWProjectListDataService_test)
#include "KWProjectListDataService_test.moc"
