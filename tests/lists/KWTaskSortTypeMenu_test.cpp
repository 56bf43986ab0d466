#include "lists/KWTaskSortTypeMenu.h"

#include "support/CaseTable.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

class KWTaskSortTypeMenu_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void offersWhatFitsTheList_data() { addCaseRows("lists/sort-menus.txt", 2); }
    void offersWhatFitsTheList()
    {
        QFETCH(QStringList, cells);
        const QStringList words = cells.at(0).split(u' ');
        const auto has = [&words](const char *word) { return words.contains(QLatin1StringView{word}); };
        KWTaskSortTypeMenu menu;
        menu.isNormalProject = has("list");
        menu.isGroup = has("folder");
        menu.isTag = has("tag");
        menu.isParentTag = has("parent");
        menu.isSharedProject = has("shared");
        menu.isNoteKind = menu.isNormalProject && has("notes");
        menu.isAllNoteKindInGroup = menu.isGroup && has("notes");
        menu.isAllTaskKindInGroup = menu.isGroup && has("tasks");
        menu.isNoteKindFilter = has("filter") && has("notes");
        menu.manualOrders = {has("date-order"), has("priority-order"), has("list-order"), has("tag-order")};

        QStringList entries;
        for (const KWTaskSortType each : menu.sortTypes())
            entries << KWTaskSortTypeMenu::titleOf(each);
        if (const auto reset = menu.resetTitle()) entries << *reset;
        QCOMPARE(entries.join(u", "_s), cells.at(1));
    }
};

ORVANE_TEST(KWTaskSortTypeMenu_test)
#include "KWTaskSortTypeMenu_test.moc"
