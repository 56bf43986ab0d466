#include "model/records/KWTaskItemTree.h"

#include "model/records/KWAttachment.h"
#include "model/records/KWChecklistItem.h"
#include "model/records/KWTask.h"
#include "support/Answers.h"
#include "support/CaseTable.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

class KWTaskItemTree_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;

    // Tasks whose ids are their names.
    void makeTasks(const QString &texts)
    {
        static const QRegularExpression form{u"^(\\w+)(?:\\[(.*)\\])?([!-]?)(?:<(\\w+))?$"_s};
        std::int64_t order = 0;
        for (const QString &text : texts.split(u' ')) {
            const auto parts = form.match(text);
            QVERIFY2(parts.hasMatch(), qUtf8Printable(text));
            KWTaskModel task =
                aTask("Task").ordered(++order).in(m_store->account().defaultAddtoList()).model();
            task.sid = parts.captured(1);
            task.childIds = parts.captured(2).split(u',', Qt::SkipEmptyParts);
            task.isTrashed = parts.captured(3) == u"!";
            task.isDeleted = parts.captured(3) == u"-";
            task.parentId = parts.captured(4);
            m_store->context().insert<KWTask>(task);
        }
        QVERIFY(m_store->context().save());
    }

    QList<KWTask *> tasks(const QString &names)
    {
        QList<KWTask *> found;
        for (const QString &each : names.split(u' '))
            found.append(m_store->context().find<KWTask>(each));
        return found;
    }

    static QString names(const QList<KWTask *> &tasks)
    {
        return joined(tasks, [](const KWTask *each) { return each->sid(); });
    }

private Q_SLOTS:
    void init() { m_store = std::make_unique<StoreFixture>(); }

    void plantsTrees_data() { addCaseRows("model/task-trees.txt", 4); }
    void plantsTrees()
    {
        QFETCH(QStringList, cells);
        makeTasks(cells.at(0));
        const KWTaskItemForest forest = KWTaskItemForest::plant(tasks(cells.at(1)), m_store->context());
        QCOMPARE(names(forest.rootTasks()), cells.at(2));
        QCOMPARE(names(forest.flatTasks()), cells.at(3));
        QCOMPARE(forest.flattedModels().size(), forest.flatTasks().size());
    }

    void knowsTheLevelRightBelow()
    {
        makeTasks(u"a[c,b,gone] b<a c<a trashed!<a d<b self<self"_s);
        for (const auto &[id, children] : {std::pair{"a", "c b"}, {"b", "d"}, {"c", ""}, {"self", ""}}) {
            KWTask &task = *tasks(QString::fromLatin1(id)).first();
            QCOMPARE(names(KWTask::children(task, m_store->context())), QString::fromLatin1(children));
            QCOMPARE(task.hasChildren(), *children != 0);
        }
    }

    void deletesForGoodWithAllThatBelongsToIt()
    {
        makeTasks(u"a[b,e] b<a c<b d e<a"_s);
        saved(*m_store, [](ObjectContext &context) {
            for (const QString &task : {u"c"_s, u"d"_s}) {
                KWChecklistItemModel item;
                item.taskID = task;
                context.insert<KWChecklistItem>(item);
                KWAttachmentModel attachment;
                attachment.taskID = task;
                context.insert<KWAttachment>(attachment);
            }
            context.find<KWTask>(u"c"_s)->markDone(); // the service has it
        });
        saved(*m_store, [](ObjectContext &context) {
            KWTask::deleteTaskAndDescendantsForever({context.find<KWTask>(u"b"_s)}, context);
        });
        ObjectContext &context = m_store->context();
        QVERIFY(!context.find<KWTask>(u"b"_s));
        QVERIFY(context.find<KWTask>(u"c"_s)->isMarkedDeleted());
        QCOMPARE(context.find<KWTask>(u"a"_s)->model().childIds, QStringList{u"e"_s});
        QCOMPARE(context.number("SELECT count(*) FROM tasks"), 4);
        QCOMPARE(context.number("SELECT count(*) FROM checklistItems"), 1);
        QCOMPARE(context.number("SELECT count(*) FROM attachments"), 1);
    }
};

ORVANE_TEST(KWTaskItemTree_test)
#include "KWTaskItemTree_test.moc"
