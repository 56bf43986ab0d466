#include "corvexkit/filter/CXSmartFilter.h"

#include "corvexkit/time/TimeText.h"
#include "support/CaseTable.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;
using namespace std::chrono;

class CXSmartFilter_test : public QObject {
    Q_OBJECT

    const CXSmartFilterFrame m_frame{.zone = *CXTimeZone::named(u"Europe/Berlin"_s),
                                     .today = local_days{2030y / May / 1},
                                     .firstWeekday = Monday,
                                     .me = 7,
                                     .childTags = {{u"trip"_s, {u"book"_s, u"shop"_s}}}};

    const CXFilteredItem m_checklist{.listID = u"garden"_s,
                                     .folderID = u"home"_s,
                                     .tags = {u"errand"_s, u"shop"_s},
                                     .startDate = instant(u"2030-05-01T09:00"_s),
                                     .endDate = {},
                                     .repeats = true,
                                     .priority = 3,
                                     .assignee = 7,
                                     .kind = CXItemKind::Checklist,
                                     .hasWords = [](const QString &words) { return words == u"milk"; }};

    bool fits(const QString &rule, const CXFilteredItem &item) const
    {
        const auto filter = CXSmartFilter::parse(rule);
        if (!filter) qFatal("%s", qPrintable(filter.error().sentence));
        return filter->matches(item, m_frame);
    }
    std::optional<Instant> instant(const QString &local) const
    {
        if (local == u"-") return std::nullopt;
        return m_frame.zone.toInstant(*TimeText::toLocalTime(local));
    }

private Q_SLOTS:
    void readsAndWrites_data() { addCaseRows("filters/rules.txt", 2); }
    void readsAndWrites()
    {
        QFETCH(QStringList, cells);
        const auto filter = CXSmartFilter::parse(cells[0]);
        QVERIFY2(filter, filter ? "" : qPrintable(filter.error().sentence));
        QCOMPARE(filter->toRule(), cells[1]);
        QVERIFY(CXSmartFilter::parse(cells[1]).value() == *filter);
    }

    void refuses_data() { addCaseRows("filters/invalid.txt", 3); }
    void refuses()
    {
        QFETCH(QStringList, cells);
        const auto filter = CXSmartFilter::parse(cells[0]);
        QVERIFY(!filter);
        QCOMPARE(filter.error().sentence,
                 u"The filter's rule cannot be read %1: %2."_s.arg(cells[1], cells[2]));
    }

    void refusesWhatIsNoRuleAtAll()
    {
        const auto sentence = [](const QString &rule) {
            const auto filter = CXSmartFilter::parse(rule);
            return filter ? QString{} : filter.error().sentence;
        };
        QVERIFY(sentence({}).startsWith(u"The filter's rule is no JSON: "));
        QVERIFY(sentence(u"tag = errand"_s).contains(u"at byte"));
        QCOMPARE(sentence(uR"({"version":2,"tag":["a"]})"_s),
                 u"The filter's rule was written by a later version."_s);
        const QString deep = uR"({"all":[)"_s.repeated(100) + u"]}"_s.repeated(100);
        QVERIFY(sentence(deep).endsWith(u": conditions stand too deep in each other."));
        const QString long_ = uR"({"all":[)"_s + uR"({"tag":["a"]},)"_s.repeated(200) + uR"({"tag":[]}]})"_s;
        QVERIFY(sentence(long_).endsWith(u": it has more than 200 conditions."));
    }

    void knowsDates_data() { addCaseRows("filters/dates.txt", 4); }
    void knowsDates()
    {
        QFETCH(QStringList, cells);
        const QString rule = uR"({"date":%1})"_s.arg(cells[0]);
        CXFilteredItem item;
        item.startDate = instant(cells[1]);
        item.endDate = instant(cells[2]);
        QCOMPARE(fits(rule, item), cells[3] == u"yes");
        QCOMPARE(fits(uR"({"not":%1})"_s.arg(rule), item), cells[3] == u"no");
    }

    void asksTheOtherQuestions_data() { addCaseRows("filters/questions.txt", 2); }
    void asksTheOtherQuestions()
    {
        QFETCH(QStringList, cells);
        QCOMPARE(fits(cells[0], m_checklist), cells[1] == u"yes");
    }

    void knowsWhomATaskIsAssignedTo()
    {
        CXFilteredItem item;
        QVERIFY(fits(uR"({"assignee":["nobody"]})"_s, item));
        QVERIFY(!fits(uR"({"assignee":["other","me"]})"_s, item));
        item.assignee = 9;
        QVERIFY(fits(uR"({"assignee":["other"]})"_s, item));
        QVERIFY(!fits(uR"({"tag":[]})"_s, item));
    }

    void knowsWhenOnlyNotesFit_data() { addCaseRows("filters/notes.txt", 2); }
    void knowsWhenOnlyNotesFit()
    {
        QFETCH(QStringList, cells);
        QCOMPARE(CXSmartFilter::parse(cells[0])->isNoteKind(), cells[1] == u"yes");
    }

    void followsARenamedTag()
    {
        const auto filter =
            CXSmartFilter::parse(uR"({"any":[{"not":{"tag":["a","b"]}},{"tag":["c"]},{"text":"a"}]})"_s);
        QCOMPARE(CXSmartFilter{filter->condition().withTagRenamed(u"a"_s, u"b"_s)}.toRule(),
                 uR"({"any":[{"not":{"tag":["b"]}},{"tag":["c"]},{"text":"a"}],"version":1})"_s);
    }
};

ORVANE_TEST(CXSmartFilter_test)
#include "CXSmartFilter_test.moc"
