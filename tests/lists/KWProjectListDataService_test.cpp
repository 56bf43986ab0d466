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

    KWProjectListDataService m_service;

    // Of the center, as the store has it now.
    QString outlineOf(StoreFixture &store)
    {
        m_service.rebuild(ProjectListContents::read(store.userID(), store.context()),
                          [](const KWProjectListNode &) { return false; });
        return outline(m_service.centerNode());
    }

private Q_SLOTS:
    void buildsTheTreeAndEmptiesIt()
    {
        StoreFixture store;
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
        const KWProjectListNode *section = &m_service.tagNode();
        QCOMPARE(outlineOf(store), u"Lists(First House(Garden Kitchen) Stray Empty Last) "
                                   "Tags(Errand Food(Leek Bread) Stray Self) Filters Subscriptions"_s);
        QCOMPARE(outline(m_service.topNode()), u"Inbox Today Tomorrow Next 7 Days"_s);
        QCOMPARE(outline(m_service.bottomNode()), u"Completed Trash"_s);
        const QList<KWListIdentifier> all = m_service.lists();
        QCOMPARE(all.size(), 4 + 5 + 2 + 6 + 2); // of the top, lists, folders, tags, of the bottom
        for (const KWListIdentifier &each : all)
            QVERIFY(m_service.nodeFor(each) && m_service.nodeFor(each)->listIdentifier() == each);
        QVERIFY(!m_service.nodeFor(KWListIdentifier::project(u"House"_s)));
        // The header of a section is no list.
        QVERIFY(!m_service.nodeFor(KWListIdentifier::smartProject(KWSmartProject::tag().identifier())));

        setSaved<KWProject>(store, u"Last"_s, &KWProjectModel::name, u"End"_s);
        QVERIFY(outlineOf(store).startsWith(u"Lists(First House(Garden Kitchen) Stray Empty End) Tags(E"_s));
        QCOMPARE(&m_service.tagNode(), section);
        m_service.clear();
        QVERIFY(m_service.lists().isEmpty());
    }
};

ORVANE_TEST(KWProjectListDataService_test)
#include "KWProjectListDataService_test.moc"
