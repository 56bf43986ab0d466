#include "lists/KWProjectListDataService.h"

#include "model/records/KWProject.h"
#include "model/records/KWProjectGroup.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTag.h"
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

KWTagModel tag(const char *label, const char *parent = "")
{
    KWTagModel tag;
    tag.label = QString::fromLatin1(label);
    tag.name = KWTag::nameForLabel(tag.label);
    tag.parent = QString::fromLatin1(parent);
    return tag;
}

bool nothing(const KWProjectListNode &) { return false; }

} // namespace

class KWProjectListDataService_test : public QObject {
    Q_OBJECT

    KWProjectListDataService m_service;

private Q_SLOTS:
    void buildsTheTreeAndEmptiesIt()
    {
        const KWProjectListNode *section = &m_service.tagNode();
        const auto outlineOfCenter = [this](const ProjectListContents &contents) {
            m_service.rebuild(contents, nothing);
            return outline(m_service.centerNode());
        };
        QCOMPARE(outlineOfCenter(
                     {.userID = {},
                      .projects = {list("First", -5), list("Garden", 1, "House"), list("Stray", 2, "gone"),
                                   list("Kitchen", 3, "House"), list("Last", 90)},
                      .groups = {folder("House", 0), folder("Empty", 50)},
                      .tags = {tag("Leek", "food"), tag("Errand"), tag("Food"), tag("Bread", "food"),
                               tag("Stray", "gone"), tag("Self", "self")}}),
                 u"Lists(First House(Garden Kitchen) Stray Empty Last) "
                 "Tags(Errand Food(Leek Bread) Stray Self) Filters Subscriptions"_s);
        const QList<KWListIdentifier> all = m_service.lists();
        QCOMPARE(all.size(), 3 + 5 + 2 + 6 + 2); // of the top, lists, folders, tags, of the bottom
        for (const KWListIdentifier &each : all)
            QVERIFY(m_service.nodeFor(each) && m_service.nodeFor(each)->listIdentifier() == each);
        QVERIFY(!m_service.nodeFor(KWListIdentifier::project(u"House"_s)));
        // The header of a section is no list.
        QVERIFY(!m_service.nodeFor(KWListIdentifier::smartProject(KWSmartProject::tag().identifier())));

        QCOMPARE(outlineOfCenter({.userID = {}, .projects = {list("Work", 1)}, .groups = {}, .tags = {}}),
                 u"Lists(Work) Tags Filters Subscriptions"_s);
        QCOMPARE(&m_service.tagNode(), section);
        m_service.clear();
        QVERIFY(m_service.lists().isEmpty());
    }

    void readsItsContentsFromTheStore()
    {
        StoreFixture store;
        const QString user = store.userID();
        const QString home = store.makeList(u"Home"_s);
        const QString work = store.makeList(u"Work"_s);
        saved(store, [&](ObjectContext &context) {
            context.find<KWProject>(work)->set(&KWProjectModel::sortOrder, -1);
            KWProject::createProjectNamed(u"Closed"_s, user, context).set(&KWProjectModel::closed, true);
            KWProject::createProjectNamed(u"Gone"_s, user, context).markDelete();
            KWProject::createProjectNamed(u"Theirs"_s, u"another"_s, context);
            KWTag::createNewTagWithName(u"Food"_s, user, TagUniqueness::MustBeNew, context);
            KWTag::createNewTagWithName(u"Gone"_s, user, TagUniqueness::MustBeNew, context)->markDelete();
            KWProjectGroupModel house = folder("House", 0);
            house.userID = user;
            context.insert<KWProjectGroup>(house);
            context.insert<KWProjectGroup>(folder("of another user", 0));
        });
        const ProjectListContents contents = ProjectListContents::read(user, store.context());
        m_service.rebuild(contents, nothing);
        QCOMPARE(outline(m_service.topNode()), u"Inbox Today Tomorrow Next 7 Days"_s);
        QCOMPARE(outline(m_service.listNode()), u"Work House Home"_s);
        QCOMPARE(outline(m_service.tagNode()), u"Food"_s);
        QCOMPARE(outline(m_service.bottomNode()), u"Completed Trash"_s);
        setSaved<KWProject>(store, home, &KWProjectModel::name, u"House work"_s);
        QVERIFY(contents != ProjectListContents::read(user, store.context()));
    }
};

ORVANE_TEST(KWProjectListDataService_test)
#include "KWProjectListDataService_test.moc"
