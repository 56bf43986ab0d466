#include "model/store/ListEditor.h"

#include "model/account/AccountSettings.h"
#include "model/records/KWChecklistItem.h"
#include "model/records/KWColumn.h"
#include "model/records/KWFilter.h"
#include "model/records/KWListIdentifier.h"
#include "model/records/KWProject.h"
#include "model/records/KWProjectGroup.h"
#include "model/records/KWTag.h"
#include "model/records/KWTask.h"
#include "model/records/KWTaskSortOrders.h"
#include "model/records/SortOrderContext.h"
#include "model/settings/KWListDisplayConfigurationManager.h"
#include "model/store/KWTagService.h"
#include "model/store/SidebarArranger.h"
#include "model/store/SidebarPlaces.h"
#include "support/Answers.h"
#include "support/EventBuilder.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

class ListEditor_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;
    std::unique_ptr<ListEditor> m_editor;
    std::unique_ptr<SidebarArranger> m_arranger;
    QHash<QString, QString> m_ids; // of lists and folders, by name

    QString id(const char *name) const { return m_ids.value(QString::fromLatin1(name)); }
    void make(const char *list, const char *folder = "")
    {
        const QString name = QString::fromLatin1(list);
        const Result<QString> made = m_editor->createList({.name = name, .groupID = id(folder)});
        QVERIFY2(made, made ? "" : qUtf8Printable(made.error().sentence));
        m_ids.insert(name, *made);
    }
    QString nameOf(const QString &id) { return m_ids.key(id, id); }

    /// "A Home(B C) D": lists and folders in their order, those of a folder in brackets.
    QString lists()
    {
        QStringList names;
        for (const SidebarPlace &each : placesAtTopLevel(m_store->userID(), m_store->context())) {
            const auto inner = placesInFolder(each.id, m_store->userID(), m_store->context());
            const QString members =
                joined(inner, [this](const SidebarPlace &member) { return nameOf(member.id); });
            names << nameOf(each.id) + (members.isEmpty() ? QString{} : u'(' + members + u')');
        }
        return names.join(u' ');
    }
    QString tagsBelow(const QString &parent = {})
    {
        return joined(placesOfTags(parent, m_store->userID(), m_store->context()), &SidebarPlace::id);
    }
    QString takeBack(const Result<UndoToken> &done)
    {
        if (!done) return done.error().sentence;
        const Result<void> undone = done->undo(m_store->kit().manager());
        return undone ? lists() : undone.error().sentence;
    }
    Result<void> deleted(const QString &listID)
    {
        Result<void> done = Error{u"not done"_s};
        bool isDone = false;
        m_editor->deleteList(listID, [&](const Result<void> &answer) {
            done = answer;
            isDone = true;
        });
        return QTest::qWaitFor([&isDone] { return isDone; }) ? done : Error{u"does not end"_s};
    }
    template <class Record>
    qsizetype numberOf()
    {
        return m_store->context().models<Record>({.where = "isDeleted = 0"}).size();
    }

private Q_SLOTS:
    void init()
    {
        m_store = std::make_unique<StoreFixture>();
        m_editor = std::make_unique<ListEditor>(m_store->kit().manager(), m_store->userID());
        m_arranger = std::make_unique<SidebarArranger>(m_store->kit().manager(), m_store->userID());
        m_ids.clear();
        make("A");
        m_ids.insert(u"Home"_s, *m_editor->createFolder(u" Home "_s));
        make("B", "Home");
        make("C", "Home");
        make("D");
        QCOMPARE(lists(), u"A Home(B C) D"_s);
    }

    void namesAreCheckedAndChanged()
    {
        const QString inbox = KWProject::inboxIDOfUser(m_store->userID());
        QVERIFY(isRefused(m_editor->createList({.name = u" \n "_s}), u"needs a name"));
        QVERIFY(isRefused(m_editor->createList({.name = u"a"_s}), u"“a” already"));
        QVERIFY(isRefused(m_editor->createList({.name = u"In box"_s}), u"already"));
        QVERIFY(isRefused(m_editor->createList({.name = u"E"_s, .groupID = u"gone"_s}), u"folder"));
        QVERIFY(isRefused(m_editor->createFolder(u"home"_s), u"folder “home” already"));
        QVERIFY(isRefused(m_editor->renameList(id("A"), u"B"_s), u"already"));
        QVERIFY(isRefused(m_editor->renameList(u"gone"_s, u"E"_s), u"no such list"));
        QVERIFY(isRefused(m_editor->renameList(inbox, u"E"_s), u"inbox"));
        QVERIFY(isRefused(m_editor->renameFolder(id("Home"), {}), u"needs a name"));
        QVERIFY(isRefused(deleted(inbox), u"inbox"));
        QCOMPARE(lists(), u"A Home(B C) D"_s);

        const Result<UndoToken> renamed = m_editor->renameList(id("A"), u"a \n a"_s);
        QVERIFY(renamed && m_editor->renameFolder(id("Home"), u"HOME"_s));
        const KWProject &list = *m_store->context().find<KWProject>(id("A"));
        QCOMPARE(list->name, u"a   a"_s);
        QVERIFY(renamed->undo(m_store->kit().manager()));
        QCOMPARE(list->name, u"A"_s);
        setSaved<KWProject>(*m_store, id("A"), &KWProjectModel::permission, KWProjectPermissionRead);
        QVERIFY(isRefused(m_editor->renameList(id("A"), u"E"_s), u"may only be read"));
    }

    void listsAndFoldersAreArranged()
    {
        const auto moved = [this](const char *list, const char *folder, const char *before) {
            return m_arranger->moveList(id(list), id(folder), id(before)) ? lists() : QString{};
        };
        QCOMPARE(moved("D", "Home", "C"), u"A Home(B D C)"_s);
        QCOMPARE(moved("A", "Home", ""), u"Home(B D C A)"_s);
        QCOMPARE(moved("C", "", "Home"), u"C Home(B D A)"_s);
        QCOMPARE(moved("B", "", ""), u"C Home(D A) B"_s);
        const Result<UndoToken> folder = m_arranger->moveFolder(id("Home"), id("C"));
        QCOMPARE(lists(), u"Home(D A) C B"_s);
        QCOMPARE(takeBack(folder), u"C Home(D A) B"_s);
        QVERIFY(isRefused(m_arranger->moveList(id("A"), u"gone"_s, {}), u"folder"));
        QVERIFY(isRefused(m_arranger->moveList(KWProject::inboxIDOfUser(m_store->userID()), {}, {})));

        // No room between the two: all get new places.
        for (const char *each : {"C", "B"})
            setSaved<KWProject>(*m_store, id(each), &KWSynchronizableFields::sortOrder, 7);
        setSaved<KWProjectGroup>(*m_store, id("Home"), &KWSynchronizableFields::sortOrder, 8);
        const QString before = lists();
        const Result<UndoToken> crowded = m_arranger->moveList(id("A"), {}, id("Home"));
        QCOMPARE(lists(), before.section(u' ', 0, 1) + u" A Home(D)"_s);
        QCOMPARE(takeBack(crowded), before);
    }

    void tagsAndFiltersAreArranged()
    {
        KWTagService tags{m_store->kit().manager(), m_store->userID()};
        for (const char *each : {"a", "b", "c"})
            QVERIFY(tags.create({QString::fromLatin1(each)}));
        QVERIFY(m_arranger->moveTag(u"c"_s, {}, u"a"_s));
        QCOMPARE(tagsBelow(), u"c a b"_s);
        const Result<UndoToken> nested = m_arranger->moveTag(u"a"_s, u"b"_s);
        QCOMPARE(tagsBelow() + u'/' + tagsBelow(u"b"_s), u"c b/a"_s);
        QVERIFY(isRefused(m_arranger->moveTag(u"b"_s, u"c"_s), u"two deep"));
        takeBack(nested);
        QCOMPARE(tagsBelow(), u"c a b"_s);

        QStringList filters;
        saved(*m_store, [&](ObjectContext &context) {
            for (const std::int64_t order : {1, 2, 3}) {
                KWFilterModel filter;
                filter.userID = m_store->userID();
                filter.sortOrder = order;
                filters << context.insert<KWFilter>(filter).sid();
            }
        });
        QVERIFY(m_arranger->moveFilter(filters.at(2), filters.at(1)));
        QCOMPARE(joined(placesOfFilters(m_store->userID(), m_store->context()), &SidebarPlace::id),
                 filters.at(0) + u' ' + filters.at(2) + u' ' + filters.at(1));

        const QString first = makeCalendar(*m_store, "Sports");
        const QString second = makeCalendar(*m_store, "Town");
        const auto calendars = [this] {
            return joined(placesOfCalendars(m_store->userID(), m_store->context()), &SidebarPlace::id);
        };
        const Result<UndoToken> moved = m_arranger->moveCalendar(second, first);
        QCOMPARE(calendars(), second + u' ' + first);
        QVERIFY(moved->undo(m_store->kit().manager()));
        QCOMPARE(calendars(), first + u' ' + second);
        QVERIFY(m_arranger->moveCalendar(first, {}));
        QCOMPARE(calendars(), second + u' ' + first);
        QVERIFY(isRefused(m_arranger->moveCalendar(u"gone"_s, {}), u"no such calendar"));
    }

    void archivedListsComeBackAndFoldersLeaveTheirLists()
    {
        const Result<UndoToken> archived = m_editor->setClosed(id("C"), true);
        QCOMPARE(lists(), u"A Home(B) D"_s);
        QVERIFY(isRefused(m_arranger->moveList(id("C"), {}), u"."));
        make("c"); // closed lists leave their names to others
        QVERIFY(isRefused(m_editor->setClosed(id("C"), false), u"“C” already"));
        QVERIFY(m_editor->renameList(id("C"), u"Other"_s));
        QVERIFY(m_editor->setClosed(id("C"), false));
        QVERIFY(deleted(id("c")) && m_editor->renameList(id("C"), u"C"_s));
        QCOMPARE(lists(), u"A Home(B C) D"_s);
        QVERIFY(m_editor->setClosed(id("B"), true));
        const Result<UndoToken> deleted = m_editor->deleteFolder(id("Home"));
        QCOMPARE(lists(), u"A C D"_s);
        QVERIFY(m_editor->setClosed(id("B"), false));
        QVERIFY(lists().contains(u'B'));
        QCOMPARE(takeBack(deleted), u"A Home(B C) D"_s);
    }

    void aDeletedListLeavesNothingBehind()
    {
        const auto makeContents = [this](const QString &list) {
            const QString task = aTask("T").in(list).withItem("I", "2030-05-01 09:00").savedIn(*m_store);
            saved(*m_store, [&](ObjectContext &context) {
                KWTaskTagSortOrderModel place;
                place.userID = m_store->userID();
                place.taskID = task;
                place.contextID = contextID({.projectID = list});
                context.insert<KWTaskTagSortOrder>(place);
                KWColumnModel column;
                column.userID = m_store->userID();
                column.projectID = list;
                context.insert<KWColumn>(column);
                for (KWTask *each : context.fetch<KWTask>({})) // the service has them
                    each->markDone();
            });
            return task;
        };
        const QString mine = makeContents(id("A"));
        const QString theirs = makeContents(id("B"));
        setSaved<KWProject>(*m_store, id("B"), &KWProjectModel::isOwner, false);
        AccountSettings settings{m_store->kit().manager(), m_store->kit().center(), m_store->userID()};
        QVERIFY(settings.change([this](auto &values) { values.defaultListID = id("A"); }));

        for (const char *each : {"A", "B"}) {
            const Result<void> done = deleted(id(each));
            QVERIFY2(done, done ? "" : qUtf8Printable(done.error().sentence));
        }
        QCOMPARE(lists(), u"Home(C) D"_s);
        QCOMPARE(numberOf<KWTask>() + numberOf<KWChecklistItem>() + numberOf<KWColumn>() +
                     numberOf<KWTaskTagSortOrder>(),
                 0);
        QVERIFY(m_store->context().find<KWTask>(mine)->isMarkedDeleted()); // the service hears of it
        QVERIFY(!m_store->context().find<KWTask>(theirs)); // and not of this: the others keep it
        QCOMPARE(m_store->account().userSettings().defaultListID, QString{});
        QVERIFY(isRefused(deleted(id("A")), u"no such list"));
    }
};

ORVANE_TEST(ListEditor_test)
#include "ListEditor_test.moc"
