#include "lists/ProjectListMenu.h"
#include "lists/SidebarDrop.h"
#include "model/records/KWSmartProject.h"
#include "support/Answers.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

namespace {

using Type = KWProjectListNodeType;

/// "Inbox Today | Lists(A Home(B C) D Archive(Old)) Tags(x(y) z) Filters(f) Subscriptions(s t) | Completed
/// Trash": every node by its id.
struct Tree {
    Tree()
    {
        add(top, Type::project, u"Inbox"_s);
        for (const KWSmartProject *each : {&KWSmartProject::today(), &KWSmartProject::all()})
            add(top, Type::smartProject, each->identifier());
        KWProjectListNode &lists = add(center, Type::smartProject, KWSmartProject::project().identifier());
        add(lists, Type::project, u"A"_s);
        KWProjectListNode &home = add(lists, Type::group, u"Home"_s);
        add(home, Type::project, u"B"_s);
        add(home, Type::project, u"C"_s).setTakesTasks(false);
        add(lists, Type::project, u"D"_s);
        add(add(lists, Type::archived, u"Archive"_s), Type::project, u"Old"_s).setTakesTasks(false);
        KWProjectListNode &tags = add(center, Type::smartProject, KWSmartProject::tag().identifier());
        add(add(tags, Type::tag, u"x"_s), Type::tag, u"y"_s);
        add(tags, Type::tag, u"z"_s);
        KWProjectListNode &filters = add(center, Type::smartProject, KWSmartProject::filter().identifier());
        add(filters, Type::filter, u"f"_s);
        add(filters, Type::filter, u"g"_s);
        KWProjectListNode &calendars = add(center, Type::smartProject, KWSmartProject::subcal().identifier());
        add(calendars, Type::calsub_url, u"s"_s);
        add(calendars, Type::calsub_url, u"t"_s);
        add(root, Type::smartProject, KWSmartProject::trash().identifier());
        add(root, Type::smartProject, KWSmartProject::completed().identifier());
    }

    KWProjectListNode &add(KWProjectListNode &parent, Type type, const QString &id)
    {
        KWProjectListNode &node = parent.addChild(std::make_unique<KWProjectListNode>(type, id, id));
        nodes.insert(id, &node);
        return node;
    }
    const KWProjectListNode &operator[](const QString &id) const { return *nodes.value(id); }

    QHash<QString, KWProjectListNode *> nodes;
    KWProjectListNode root{Type::none, {}, {}};
    KWProjectListNode &top =
        root.addChild(std::make_unique<KWProjectListNode>(Type::none, QString{}, QString{}));
    KWProjectListNode &center =
        root.addChild(std::make_unique<KWProjectListNode>(Type::none, QString{}, QString{}));
};

KWProjectModel list(const char *state)
{
    KWProjectModel model;
    model.isInbox = qstrcmp(state, "inbox") == 0;
    model.closed = qstrcmp(state, "closed") == 0;
    model.isOwner = qstrcmp(state, "theirs") != 0;
    return model;
}

} // namespace

/// The rules of the sidebar that are written down in docs/sidebar.md.
class SidebarRules_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void rowsAreDroppedWhereTheyMayStand_data()
    {
        QTest::addColumn<QString>("dragged");
        QTest::addColumn<QString>("parent");
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("place"); // "parent/before", "no"
        const auto row = [](const char *dragged, const char *parent, int index, const char *place) {
            QTest::addRow("%s to %s %d", dragged, parent, index)
                << QString::fromLatin1(dragged) << QString::fromLatin1(parent) << index
                << QString::fromLatin1(place);
        };
        constexpr int on = SidebarDrop::onNode;
        row("D", "smart.project", 0, "/A");
        row("A", "smart.project", 0, "no"); // it is there
        row("A", "smart.project", 1, "no");
        row("A", "smart.project", 2, "/D");
        row("A", "smart.project", 4, "/"); // behind the archive: before it
        row("A", "Home", on, "Home/");
        row("A", "Home", 1, "Home/C");
        row("B", "smart.project", on, "/");
        row("B", "Home", 2, "Home/");
        row("Home", "smart.project", 0, "/A");
        row("Home", "Home", on, "no");
        row("Home", "smart.tag", on, "no");
        row("Old", "Home", on, "no");
        row("Inbox", "smart.project", 0, "no");
        row("A", "Archive", on, "no");
        row("A", "x", on, "no");
        row("z", "x", on, "x/");
        row("z", "x", 0, "x/y");
        row("y", "smart.tag", 0, "/x");
        row("x", "z", on, "no"); // three deep
        row("z", "y", on, "no");
        row("x", "x", on, "no");
        row("g", "smart.filter", 0, "/f");
        row("f", "smart.project", 0, "no");
        row("t", "smart.subcal", 0, "/s");
        row("s", "smart.subcal", on, "/");
        row("s", "t", on, "no");
        row("s", "smart.filter", 0, "no");
        row("smart.today", "smart.project", 0, "no");
    }
    void rowsAreDroppedWhereTheyMayStand()
    {
        QFETCH(QString, dragged);
        QFETCH(QString, parent);
        QFETCH(int, index);
        const Tree tree;
        const auto place = SidebarDrop::validateDrop(tree[dragged], tree[parent], index);
        QTEST(place ? place->parentID + u'/' + place->beforeID : u"no"_s, "place");
    }

    void keysMoveARowAmongThoseBesideIt()
    {
        const Tree tree;
        const auto moved = [&tree](const QString &id, int step) {
            const auto place = SidebarDrop::placeBeside(tree[id], step);
            return place ? place->parentID + u'/' + place->beforeID : u"no"_s;
        };
        QCOMPARE(moved(u"A"_s, 1), u"/D"_s);
        QCOMPARE(moved(u"D"_s, -1), u"/Home"_s);
        QCOMPARE(moved(u"A"_s, -1), u"no"_s);
        QCOMPARE(moved(u"D"_s, 1), u"no"_s);
        QCOMPARE(moved(u"C"_s, -1), u"Home/B"_s);
        QCOMPARE(moved(u"t"_s, -1), u"/s"_s);
        QCOMPARE(moved(u"Inbox"_s, 1), u"no"_s);
    }

    void tasksBecomeWhatTheRowStandsFor()
    {
        using enum SidebarDrop::TaskDrop;
        const Tree tree;
        const QList<std::pair<const char *, SidebarDrop::TaskDrop>> expected{{"Inbox", MoveToList},
                                                                             {"A", MoveToList},
                                                                             {"Old", None},
                                                                             {"C", None},
                                                                             {"Home", None},
                                                                             {"y", AddTag},
                                                                             {"f", None},
                                                                             {"smart.all", None},
                                                                             {"smart.today", SetToday},
                                                                             {"smart.completed", Complete},
                                                                             {"smart.trash", Delete},
                                                                             {"smart.project", None}};
        for (const auto &[id, drop] : expected)
            QVERIFY2(SidebarDrop::validateTaskDrop(tree[QString::fromLatin1(id)]) == drop, id);
    }

    void everyKindOfNodeHasItsMenu()
    {
        using enum ProjectListCommand;
        const Tree tree;
        const auto menu = [&tree](const char *id, const char *state = "") {
            const KWProjectListNode &node = tree[QString::fromLatin1(id)];
            return projectListMenu(node,
                                   node.type() == Type::project ? std::optional{list(state)} : std::nullopt);
        };
        using Commands = QList<ProjectListCommand>;
        QCOMPARE(menu("A"), (Commands{Rename, Color, MoveToFolder, Archive, Delete}));
        QCOMPARE(menu("A", "theirs"), (Commands{Rename, Color, MoveToFolder, Archive, ExitSharedList}));
        QCOMPARE(menu("Old", "closed"), (Commands{Reopen, Delete}));
        QCOMPARE(menu("Inbox", "inbox"), (Commands{NewList, NewNoteList, NewFolder}));
        QCOMPARE(menu("Home"), (Commands{NewList, NewNoteList, Rename, Delete}));
        QCOMPARE(menu("x"), (Commands{NewTag, Rename, Color, Delete}));
        QCOMPARE(menu("y"), (Commands{Rename, Color, Delete}));
        QCOMPARE(menu("f"), (Commands{EditFilter, Delete}));
        QCOMPARE(menu("smart.today"), (Commands{ShowOnlyIfNotEmpty, Hide}));
        QCOMPARE(menu("smart.tag"), (Commands{NewTag, ShowOnlyIfNotEmpty, Hide}));
        QCOMPARE(menu("Archive"), Commands{});
    }
};

ORVANE_TEST(SidebarRules_test)
#include "SidebarRules_test.moc"
