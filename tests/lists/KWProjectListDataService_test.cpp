#include "lists/KWProjectListDataService.h"

#include "model/records/KWProject.h"
#include "model/records/KWProjectGroup.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTag.h"
#include "support/StoreFixture.h"
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

    std::unique_ptr<KWProjectListDataService> m_service;

private Q_SLOTS:
    void init() { m_service = std::make_unique<KWProjectListDataService>(); }
    void hasItsSectionsFromTheStart();
    void showsTheInboxAndTheDaysOnTop();
    void ordersFoldersAmongLists();
    void nestsTagsBelowTheirParents();
    void foldsWhatTheUserFolded();
    void keepsTheSectionsThroughRebuilds();
    void findsTheNodeOfAList();
    void readsItsContentsFromTheStore();
    void aRowMayRefuseToFold();
};

void KWProjectListDataService_test::hasItsSectionsFromTheStart()
{
    QCOMPARE(outline(m_service->centerNode()), u"Lists Tags Filters Subscriptions"_s);
    const auto &sections = m_service->rootNode().children();
    QCOMPARE(sections.size(), 3U);
    QCOMPARE(sections.at(0).get(), &m_service->topNode());
    QCOMPARE(sections.at(1).get(), &m_service->centerNode());
    QCOMPARE(sections.at(2).get(), &m_service->bottomNode());
    for (KWProjectListNode *each : {&m_service->listNode(), &m_service->tagNode(), &m_service->filterNode(),
                                    &m_service->subCalNode()}) {
        QCOMPARE(each->type(), KWProjectListNodeType::smartProject);
        QCOMPARE(each->parent(), &m_service->centerNode());
        QCOMPARE(m_service->centerNode().children().at(std::size_t(each->row())).get(), each);
    }
}

void KWProjectListDataService_test::showsTheInboxAndTheDaysOnTop()
{
    KWProjectModel inbox = list("inbox1", 0);
    inbox.isInbox = true;
    m_service->rebuild({.userID = {}, .projects = {inbox, list("Home", 1)}, .groups = {}, .tags = {}},
                       nothing);
    QCOMPARE(outline(m_service->topNode()), u"Inbox Today Tomorrow Next 7 Days"_s);
    QCOMPARE(outline(m_service->listNode()), u"Home"_s);
    QCOMPARE(outline(m_service->bottomNode()), u"Completed"_s);
}

void KWProjectListDataService_test::ordersFoldersAmongLists()
{
    m_service->rebuild({.userID = {},
                        .projects = {list("First", -5), list("Garden", 1, "House"), list("Stray", 2, "gone"),
                                     list("Kitchen", 3, "House"), list("Last", 90)},
                        .groups = {folder("House", 0), folder("Empty", 50)},
                        .tags = {}},
                       nothing);
    QCOMPARE(outline(m_service->listNode()), u"First House(Garden Kitchen) Stray Empty Last"_s);
}

void KWProjectListDataService_test::nestsTagsBelowTheirParents()
{
    m_service->rebuild({.userID = {},
                        .projects = {},
                        .groups = {},
                        .tags = {tag("Leek", "food"), tag("Errand"), tag("Food"), tag("Bread", "food"),
                                 tag("Stray", "gone"), tag("Self", "self")}},
                       nothing);
    QCOMPARE(outline(m_service->tagNode()), u"Errand Food(Leek Bread) Stray Self"_s);
}

void KWProjectListDataService_test::foldsWhatTheUserFolded()
{
    const ProjectListContents contents{
        .userID = {}, .projects = {list("Garden", 1, "House")}, .groups = {folder("House", 0)}, .tags = {}};
    m_service->rebuild(
        contents, [](const KWProjectListNode &node) { return node.type() == KWProjectListNodeType::group; });
    QVERIFY(!m_service->listNode().children().front()->isExpanded());
    QVERIFY(m_service->listNode().isExpanded());
    m_service->rebuild(contents, nothing);
    QVERIFY(m_service->listNode().children().front()->isExpanded());
}

void KWProjectListDataService_test::keepsTheSectionsThroughRebuilds()
{
    const KWProjectListNode *section = &m_service->tagNode();
    m_service->rebuild({.userID = {}, .projects = {list("Home", 1)}, .groups = {}, .tags = {tag("a")}},
                       nothing);
    m_service->rebuild({.userID = {}, .projects = {list("Work", 1)}, .groups = {}, .tags = {}}, nothing);
    QCOMPARE(&m_service->tagNode(), section);
    QCOMPARE(outline(m_service->listNode()), u"Work"_s);
    QVERIFY(section->children().empty());
    m_service->clear();
    QVERIFY(m_service->lists().isEmpty());
    QVERIFY(m_service->topNode().children().empty());
    QCOMPARE(outline(m_service->centerNode()), u"Lists Tags Filters Subscriptions"_s);
}

void KWProjectListDataService_test::findsTheNodeOfAList()
{
    m_service->rebuild({.userID = {},
                        .projects = {list("Garden", 1, "House")},
                        .groups = {folder("House", 0)},
                        .tags = {tag("Food"), tag("Bread", "food")}},
                       nothing);
    const QList<KWListIdentifier> all{
        KWListIdentifier::todayProject(),
        KWListIdentifier::group(u"House"_s),
        KWListIdentifier::project(u"Garden"_s),
        KWListIdentifier::tag(u"food"_s),
        KWListIdentifier::tag(u"bread"_s),
        KWListIdentifier::smartProject(KWSmartProject::completed().identifier())};
    for (const KWListIdentifier &each : all) {
        KWProjectListNode *node = m_service->nodeFor(each);
        QVERIFY(node);
        QVERIFY(node->listIdentifier() == each);
        QVERIFY(m_service->lists().contains(each));
    }
    QCOMPARE(m_service->lists().size(), all.size() + 2); // with Tomorrow and Next 7 Days
    QVERIFY(!m_service->nodeFor(KWListIdentifier::project(u"House"_s)));
    // The header of a section is no list.
    QVERIFY(!m_service->nodeFor(KWListIdentifier::smartProject(KWSmartProject::tag().identifier())));
}

void KWProjectListDataService_test::readsItsContentsFromTheStore()
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
    QVERIFY(contents == ProjectListContents::read(user, store.context()));
    m_service->rebuild(contents, nothing);
    QCOMPARE(outline(m_service->topNode()), u"Inbox Today Tomorrow Next 7 Days"_s);
    QCOMPARE(outline(m_service->listNode()), u"Work House Home"_s);
    QCOMPARE(outline(m_service->tagNode()), u"Food"_s);
    saved(store, [&](ObjectContext &context) {
        context.find<KWProject>(home)->set(&KWProjectModel::name, u"House work"_s);
    });
    QVERIFY(contents != ProjectListContents::read(user, store.context()));
}

void KWProjectListDataService_test::aRowMayRefuseToFold()
{
    KWProjectListNode node{KWProjectListNodeType::group, u"a"_s, u"A"_s};
    QList<bool> asked;
    node.expanedChangedHandler = [&](bool isExpanded, KWProjectListNode &) {
        asked << isExpanded;
        return false;
    };
    node.setIsExpanded(true); // as it is
    node.setIsExpanded(false);
    QCOMPARE(asked, QList<bool>{false});
    QVERIFY(node.isExpanded());
    int selections = 0;
    node.selectChangedHanlder = [&] { ++selections; };
    node.setIsSelected(true);
    node.setIsSelected(true);
    QCOMPARE(selections, 1);
}

ORVANE_TEST(KWProjectListDataService_test)
#include "KWProjectListDataService_test.moc"
