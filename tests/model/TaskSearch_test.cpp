#include "model/store/TaskSearch.h"

#include "model/records/KWProject.h"
#include "model/records/KWTask.h"
#include "model/store/Connection.h"
#include "support/Answers.h"
#include "support/CaseTable.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

namespace {

QString marked(QString text, const QList<TextMark> &marks)
{
    for (auto mark = marks.crbegin(); mark != marks.crend(); ++mark)
        text.insert(mark->position + mark->length, u']').insert(mark->position, u'[');
    return text.isEmpty() ? u"-"_s : text;
}

} // namespace

class TaskSearch_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;

    QList<TaskSearchHit> find(const QString &text, SearchScope scope = SearchScope::TitlesAndContents)
    {
        const auto hits = TaskSearch::find({m_store->userID(), text, scope}, m_store->clock,
                                           m_store->context().connection());
        if (!hits) qFatal("%s", qPrintable(hits.error().sentence));
        return *hits;
    }
    QString titles(const QString &text, SearchScope scope = SearchScope::TitlesAndContents)
    {
        return joined(find(text, scope), [](const TaskSearchHit &each) { return each.row.title; });
    }

private Q_SLOTS:
    void init() { m_store = std::make_unique<StoreFixture>(); }

    void findsAndMarks_data() { addCaseRows("model/search.txt", 5); }
    void findsAndMarks()
    {
        QFETCH(const QStringList, cells);
        const QString task = aTask(qUtf8Printable(cells[1])).savedIn(*m_store);
        if (cells[2] != u"-") setSaved<KWTask>(*m_store, task, &KWTaskModel::content, cells[2]);
        const QList<TaskSearchHit> hits = find(cells[0]);
        QCOMPARE(hits.isEmpty(), cells[3] == u"-");
        if (hits.isEmpty()) return;
        QCOMPARE(marked(hits.first().row.title, hits.first().titleMarks), cells[3]);
        QCOMPARE(marked(hits.first().excerpt, hits.first().excerptMarks), cells[4]);
    }

    void findsWhatLiesBehindManyInTheTrash()
    {
        aTask("Needle").savedIn(*m_store);
        saved(*m_store, [this](ObjectContext &context) {
            KWTaskModel thrownAway = aTask("needle").in(KWProject::inboxIDOfUser(m_store->userID())).model();
            thrownAway.userID = m_store->userID();
            thrownAway.isTrashed = true;
            for (int i = 0; i < 400; ++i)
                context.insert<KWTask>(thrownAway);
        });
        QCOMPARE(titles(u"needle"_s), u"Needle"_s);
    }

    void followsEveryChangeOfTheText()
    {
        const QString tea = aTask("Buy tea").savedIn(*m_store);
        const QString done = aTask("Tea ceremony").completedAt("2030-04-01 09:00").savedIn(*m_store);
        const QString shop = aTask("Shop").savedIn(*m_store);
        setSaved<KWTask>(*m_store, shop, &KWTaskModel::content, u"tea and\nmilk"_s);
        QCOMPARE(titles(u"tea"_s), u"Buy tea Shop Tea ceremony"_s);
        QCOMPARE(titles(u"tea"_s, SearchScope::Titles), u"Buy tea Tea ceremony"_s);
        QCOMPARE(find(u"milk"_s).first().excerpt, u"tea and milk"_s);

        setSaved<KWTask>(*m_store, tea, &KWTaskModel::title, u"Buy coffee"_s);
        setSaved<KWTask>(*m_store, shop, &KWTaskModel::isTrashed, true);
        QCOMPARE(titles(u"tea"_s), u"Tea ceremony"_s);
        QCOMPARE(titles(u"coff"_s), u"Buy coffee"_s);
        saved(*m_store, [&](ObjectContext &context) { context.remove(*context.find<KWTask>(done)); });
        QCOMPARE(titles(u"tea"_s), QString{});
        m_store->context().connection().execute(
            "INSERT INTO taskSearch (taskSearch) VALUES ('integrity-check')");
    }
};

ORVANE_TEST(TaskSearch_test)
#include "TaskSearch_test.moc"
