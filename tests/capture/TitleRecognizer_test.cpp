#include "capture/TitleRecognizer.h"

#include "corvexkit/time/TimeText.h"
#include "model/text/UnicodeText.h"
#include "support/CaseTable.h"
#include "support/CaseText.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"

#include <QMap>
#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace {

KWProjectModel list(const QString &id, const QString &name)
{
    KWProjectModel model;
    model.sid = id;
    model.name = name;
    return model;
}

KWTeamworkerModel member(std::int64_t userServerID, const QString &name)
{
    KWTeamworkerModel model;
    model.userServerID = userServerID;
    model.name = name;
    return model;
}

RecognitionSettings settings(const KWSmartRecognitionConfiguration &recognition = {})
{
    return {{},
            recognition,
            {},
            NameIndex::ofLists({list(u"i"_s, u"Inbox"_s), list(u"o"_s, u"Home Office"_s),
                                list(u"h"_s, u"Home"_s), list(u"h2"_s, u"home"_s), list(u"c"_s, u"C# work"_s),
                                list(u"w"_s, u"工作"_s), list(u"odd"_s, u"Plans (old) ~Home"_s)}),
            {{u"o"_s, NameIndex::ofMembers({member(7, u"North"_s), member(8, u"North Star"_s),
                                            member(9, u"north"_s), member(10, u"东方"_s)})},
             {u"h"_s, NameIndex::ofMembers({member(11, u"South"_s)})}}};
}

QString textOf(const std::optional<RecognizedList> &list)
{
    if (!list) return u"-"_s;
    return list->isNew() ? u'+' + list->name : list->name;
}

QString textOf(const QList<RecognizedPiece> &pieces)
{
    static const QStringList names{u"date"_s, u"tag"_s, u"priority"_s, u"list"_s, u"assignee"_s};
    QStringList texts;
    for (const RecognizedPiece &each : pieces)
        texts.append(u"%1 %2+%3"_s.arg(names[int(each.type)]).arg(each.location).arg(each.length));
    return texts.isEmpty() ? u"-"_s : texts.join(u", "_s);
}

bool areInOrderWithin(const QString &typed, const QList<RecognizedPiece> &pieces)
{
    qsizetype end = 0;
    for (const RecognizedPiece &each : pieces) {
        if (each.location < end || each.length <= 0) return false;
        if (each.text != typed.mid(each.location, each.length)) return false;
        end = each.location + each.length;
    }
    return end <= typed.size();
}

} // namespace

class TitleRecognizer_test : public QObject {
    Q_OBJECT

    ManualClock m_clock{"2030-05-01 09:00"};
    TitleRecognizer m_recognizer{m_clock, settings()};

    QString startOf(const TitleRecognition &recognition) const
    {
        const auto &model = recognition.date.dateTimeReminderModel;
        return model ? TimeText::fromLocalTime(m_clock.zone().toLocal(model->startDateTime->date)) : u"-"_s;
    }

private Q_SLOTS:
    void understandsTitles_data() { addCaseRows("tokens/titles.txt", 7); }
    void understandsTitles()
    {
        QFETCH(QStringList, cells);
        const QString typed = quotedText(cells[0]);
        const TitleRecognition found = m_recognizer.recognize(typed);
        QCOMPARE(found.title, quotedText(cells[1]));
        QCOMPARE(found.tags.isEmpty() ? u"-"_s : found.tags.join(u' '), cells[2]);
        QCOMPARE(found.priority ? QString::number(*found.priority) : u"-"_s, cells[3]);
        QCOMPARE(textOf(found.parsedProjectResult), cells[4]);
        QCOMPARE(startOf(found), cells[5]);
        QCOMPARE(textOf(found.pieces), cells[6]);
        QVERIFY(areInOrderWithin(typed, found.pieces));
    }

    void understandsChineseTitles_data() { addCaseRows("tokens/titles-chinese.txt", 7); }
    void understandsChineseTitles()
    {
        QLocale::setDefault(QLocale{QLocale::Chinese, QLocale::China});
        const auto restore = qScopeGuard([] { QLocale::setDefault(QLocale::c()); });
        understandsTitles();
    }

    // How a setting, or a mark that was taken back, changes what is recognised.
    void followsSettings_data() { addCaseRows("tokens/settings.txt", 4); }
    void followsSettings()
    {
        QFETCH(QStringList, cells);
        const auto without = [](ParseOption option) {
            return RecognitionOptions{.parseOption = ParseOptions{63 & ~int(option)}};
        };
        const QMap<QString, KWSmartRecognitionConfiguration> configurations{
            {u"keeps dates"_s, {.removesDate = false}},
            {u"keeps tags"_s, {.removesTag = false}},
            {u"plain dates off"_s, {.dateEnabled = false}}};
        const QMap<QString, RecognitionOptions> options{
            {u"no tags"_s, without(ParseOption::Tag)},
            {u"no priorities"_s, without(ParseOption::Priority)},
            {u"no lists"_s, without(ParseOption::List)},
            {u"no marked dates"_s, without(ParseOption::DateToken)},
            {u"no plain dates"_s, without(ParseOption::Date)},
            {u"date undone"_s, {.donotParseDate = true}},
            {u"Home undone"_s, {.blockedProjects = {u"h"_s}}},
            {u"Home Office undone"_s, {.blockedProjects = {u"o"_s}}},
            {u"new list undone"_s, {.blockedProjects = {u"Sale"_s}}},
            {u"!low undone"_s, {.blockedPriorities = {KWTaskPriorityLow}}}};
        QVERIFY(configurations.contains(cells[0]) || options.contains(cells[0]));
        const TitleRecognizer recognizer{m_clock, settings(configurations.value(cells[0]))};
        const auto found = recognizer.recognize(quotedText(cells[1]), options.value(cells[0]));
        QCOMPARE(found.title, quotedText(cells[2]));
        QCOMPARE(textOf(found.pieces), cells[3]);
    }

    // In a field that stands in the list Home Office, which others share.
    void takesPeopleAndChoices_data() { addCaseRows("tokens/choices.txt", 6); }
    void takesPeopleAndChoices()
    {
        QFETCH(QStringList, cells);
        const QMap<QString, RecognitionOptions> options{
            {u"-"_s, {}},
            {u"undone"_s, {.donotParseAssignee = true}},
            {u"no assignees"_s, {.parseOption = ParseOptions{63 & ~int(ParseOption::Assignee)}}},
            {u"second north"_s, {.chosenTeamworker = u"9"_s}},
            {u"second home"_s, {.chosenProject = u"h2"_s}},
            {u"first undone"_s, {.blockedProjects = {u"h"_s}}},
            {u"second undone"_s, {.blockedProjects = {u"h2"_s}, .chosenProject = u"h2"_s}},
            {u"odd"_s, {.chosenProject = u"odd"_s}},
            {u"new undone"_s, {.blockedProjects = {u"Sale"_s}}},
            {u"list by hand"_s, {.isProjectManual = true}}};
        QVERIFY(options.contains(cells[0]));
        RecognitionOptions chosen = options.value(cells[0]);
        chosen.projectID = u"o"_s;
        const QString typed = quotedText(cells[1]);
        const TitleRecognition found = m_recognizer.recognize(typed, chosen);
        QCOMPARE(found.title, quotedText(cells[2]));
        QCOMPARE(found.assignedTeamworker ? QString::number(found.assignedTeamworker->userServerID) : u"-"_s,
                 cells[3]);
        QCOMPARE(found.parsedProjectResult ? found.parsedProjectResult->id : u"-"_s, cells[4]);
        QCOMPARE(textOf(found.pieces), cells[5]);
        QVERIFY(areInOrderWithin(typed, found.pieces));
        for (const RecognizedPiece &each : found.pieces)
            if (each.type == RecognizedPieceType::Assignee) QVERIFY(!each.value.isEmpty());
    }

    // In quadratic time this test would not end.
    void readsLongTextsInLinearTime()
    {
        const QString units = u"a| |#|#a |!|!high |~|~Home |~a#b |^x|*|*today |@|@ |@a.b |@North |tomorrow |"
                              u"\"|\"a\" |(|工|~工作|http://a#b |-_"_s;
        for (const QString &unit : units.split(u'|')) {
            const QString typed = unit.repeated(100'000 / unit.size());
            QVERIFY2(areInOrderWithin(typed, m_recognizer.recognize(typed, {.projectID = u"o"_s}).pieces),
                     qPrintable(unit));
        }
    }

    void answersAnyText()
    {
        const QStringList parts =
            u"#|a|!|high|~|Home| |  |@|*|today|5pm|every|\n|\"|“|”|明天|＃|！|～|(|\uFFFC|\u0301|\u200D|-|"
            u"http://x.y/|remind me|😀"_s.split(u'|') +
            QStringList{QChar{0xD83D}, QChar{0xDE00}, QChar{0}};
        QRandomGenerator random{20300501};
        for (int round = 0; round < 5000; ++round) {
            QString typed;
            for (int count = random.bounded(12); count > 0; --count)
                typed += parts[random.bounded(int(parts.size()))];
            const TitleRecognition found = m_recognizer.recognize(typed);
            const QString whole = withoutBrokenSurrogates(typed);
            QVERIFY2(areInOrderWithin(whole, found.pieces), qPrintable(typed));
            QVERIFY2(found.title.isValidUtf16() && !found.title.contains(u'\n'), qPrintable(typed));
            QCOMPARE(found.title, found.title.trimmed());
            QCOMPARE(m_recognizer.recognize(whole).title, found.title);
        }
    }
};

ORVANE_TEST(TitleRecognizer_test)
#include "TitleRecognizer_test.moc"
