#include "lists/KWTaskCategory.h"

#include "RowText.h"
#include "model/records/KWTagModel.h"
#include "support/Answers.h"
#include "support/CaseTable.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

class KWTaskCategory_test : public QObject {
    Q_OBJECT

    static QList<KWTaskCategory> sections(const QString &how, const QString &rows)
    {
        const ShownList shown = RowText::shown(how);
        return KWTaskCategory::buildCategories(RowText::rows(rows), shown, shown.sortType(),
                                               how.contains(u"board"_s), !how.contains(u"unpinned"_s));
    }

private Q_SLOTS:
    void cutsAListIntoSections_data() { addCaseRows("lists/sections.txt", 3); }
    void cutsAListIntoSections()
    {
        QFETCH(const QStringList, cells);
        QCOMPARE(RowText::textOf(flatRows(sections(cells.at(0), cells.at(1)), {})), cells.at(2));
    }

    void hidesWhatIsFolded_data() { addCaseRows("lists/folded-rows.txt", 4); }
    void hidesWhatIsFolded()
    {
        QFETCH(const QStringList, cells);
        QList<KWTaskCategory> categories = sections(cells.at(0), cells.at(1));
        if (categories.last().isCompleted()) categories.append(KWTaskCategory::loadMore());
        FoldedRows folded;
        for (const QString &each : cells.at(2).split(u' ')) {
            folded.collapsedCategories.insert(each);
            folded.tasks.insert(each);
        }
        const QList<TaskListRow> rows = flatRows(categories, folded);
        QCOMPARE(RowText::textOf(rows), cells.at(3));
        QSet<QString> ids;
        for (const TaskListRow &each : rows)
            ids.insert(each.id);
        QCOMPARE(ids.size(), rows.size());
    }

    void ordersTagsAsTheirSectionsStand_data()
    {
        QTest::addColumn<KWListIdentifier>("list");
        QTest::addColumn<QString>("expected");
        QTest::newRow("anywhere") << KWListIdentifier::todayProject() << u"food milk bread errand late"_s;
        QTest::newRow("in a parent") << KWListIdentifier::tag(u"food"_s) << u"milk bread food"_s;
        QTest::newRow("in a child") << KWListIdentifier::tag(u"milk"_s) << u"milk"_s;
    }
    void ordersTagsAsTheirSectionsStand()
    {
        QFETCH(const KWListIdentifier, list);
        QList<KWTagModel> tags;
        for (const auto &[name, parent] :
             {std::pair{"milk", "food"}, {"food", ""}, {"bread", "food"}, {"errand", ""}, {"late", "gone"}}) {
            KWTagModel tag;
            tag.name = QString::fromLatin1(name);
            tag.parent = QString::fromLatin1(parent);
            tags.append(tag);
        }
        QTEST(joined(KWTaskCategory::categoriesSortedByTag(tags, list), &KWTagModel::name), "expected");
    }

    void saysWhatASectionStandsFor()
    {
        const auto byDate = sections(u"date"_s, u"a 04-30, b 05-01, c 05-09, d"_s);
        const auto *overdue = byDate.at(0).as<KWDateCategorySection>();
        const Day today = RowText::shown(u"date"_s).today;
        QVERIFY(byDate.at(0).isOverdue() && !byDate.at(0).isSingleDate());
        QVERIFY(overdue->isMultiDate && overdue->date == today - std::chrono::days{1});
        QVERIFY(byDate.at(1).isSingleDate() && byDate.at(1).as<KWDateCategorySection>()->date == today);
        QVERIFY(!byDate.at(2).isSingleDate() && !byDate.at(2).isOverdue());
        QVERIFY(byDate.at(3).isDate() && !byDate.at(3).as<KWDateCategorySection>()->date);

        const auto mixed = sections(u"date"_s, u"a, b %, c ~, d *"_s);
        QVERIFY(mixed.at(0).isPinned() && mixed.at(1).isTaskKind() && !mixed.at(2).isTaskKind());
        QVERIFY(mixed.at(2).isNoteKind() && mixed.at(3).isCompleted());
        const auto mine = sections(u"assignee"_s, u"a =7"_s);
        QVERIFY(mine.at(0).as<KWAssigneeCategorySection>()->userServerIDs == QList<std::int64_t>{7});
    }
};

ORVANE_TEST(KWTaskCategory_test)
#include "KWTaskCategory_test.moc"
