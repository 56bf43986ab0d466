#include "capture/KWNativeParser.h"

#include "capture/CaseText.h"
#include "capture/LocaleDateFormat.h"
#include "model/settings/KWTaskDefaultConfiguration.h"
#include "support/CaseTable.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

CXAlarmTrigger trigger(const char *text, bool isAllDay = false)
{
    return CXAlarmTrigger::triggerWithRepresentation(QString::fromLatin1(text), isAllDay);
}

QJsonObject answer(const char *json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isObject()) qFatal("%s is no JSON object", json);
    return document.object();
}

} // namespace

class KWNativeParser_test : public QObject {
    Q_OBJECT

    const CXTimeZone m_berlin = *CXTimeZone::named(u"Europe/Berlin"_s);
    const Instant m_now = at("2030-05-01 09:00", "Europe/Berlin");
    KWTaskDefaultConfiguration m_defaults;

    KWReminderModelFromNaturalLanguage read(const char *json, const QString &text = {}) const
    {
        return KWNativeParser::parseDic(answer(json), text, text, {}, {m_berlin, m_defaults});
    }
    std::set<CXAlarmTrigger> remindersIn(const char *json, const QString &text = {}) const
    {
        return read(json, text).dateTimeReminderModel->alarmTriggers;
    }
    KWReminderModelFromNaturalLanguage parse(const QString &text, std::optional<Instant> base) const
    {
        return KWNativeParser::parse(text, base, 2, 9h, 13h, 17h + 30min, 20h, text, {},
                                     {m_berlin, m_defaults});
    }

private Q_SLOTS:
    void initTestCase();
    void cleanup() { QLocale::setDefault(QLocale::c()); }
    void hasNoDateWithoutAStart_data();
    void hasNoDateWithoutAStart();
    void readsStartAndEnd();
    void endsAllDayDatesAfterTheirLastDay();
    void readsRepeats();
    void takesDefaultRemindersUnlessOneIsNamed();
    void turnsWeeksIntoDays();
    void locatesPhrases_data();
    void locatesPhrases();
    void locatesPhrasesOneAfterTheOther();
    void searchesTheLongerText();
    void tellsChineseInput();
    void tellsTheOrderOfDayAndMonth_data();
    void tellsTheOrderOfDayAndMonth();
    void handsTheSettingsToTheLibrary();
    void exchangesTimeStamps();
};

void KWNativeParser_test::initTestCase()
{
    m_defaults.reminders = {trigger("TRIGGER:-PT10M")};
    m_defaults.allDayReminders = {trigger("TRIGGER:-P0DT15H0M0S", true)};
}

void KWNativeParser_test::hasNoDateWithoutAStart_data()
{
    QTest::addColumn<QByteArray>("json");
    for (const char *json :
         {R"({})", R"({"startDate": ""})", R"({"startDate": "soon"})", R"({"startDate": 5})",
          R"({"startDate": "2030-02-30T00:00:00", "recognizeStrings": ["soon"]})"})
        QTest::newRow(json) << QByteArray{json};
}

void KWNativeParser_test::hasNoDateWithoutAStart()
{
    QFETCH(QByteArray, json);
    const KWReminderModelFromNaturalLanguage found = read(json.constData(), u"soon"_s);
    QVERIFY(!found.dateTimeReminderModel && found.recognizedStrings.isEmpty());
}

void KWNativeParser_test::readsStartAndEnd()
{
    const auto model = *read(R"({"startDate": "2030-05-02T17:00:00", "dueDate": "2030-05-02T18:30:00"})")
                            .dateTimeReminderModel;
    QCOMPARE(model.startDateTime, (KWDateTime{at("2030-05-02 17:00", "Europe/Berlin"), true}));
    QCOMPARE(model.endDateTime, (KWDateTime{at("2030-05-02 18:30", "Europe/Berlin"), true}));
    QVERIFY(!read(R"({"startDate": "2030-05-02T17:00:00", "dueDate": "later"})")
                 .dateTimeReminderModel->endDateTime);
}

void KWNativeParser_test::endsAllDayDatesAfterTheirLastDay()
{
    const auto model = *read(R"({"startDate": "2030-05-02T00:00:00", "dueDate": "2030-05-02T00:00:00",
                                 "isAllDay": true})")
                            .dateTimeReminderModel;
    QVERIFY(model.isAllDay());
    QCOMPARE(model.endDateTime, (KWDateTime{at("2030-05-03 00:00", "Europe/Berlin"), false}));
    // A day of 23 hours.
    const auto shortDay = *read(R"({"startDate": "2030-03-30T00:00:00", "dueDate": "2030-03-31T00:00:00",
                                  "isAllDay": true})")
                               .dateTimeReminderModel;
    QCOMPARE(shortDay.endDateTime, (KWDateTime{at("2030-04-01 00:00", "Europe/Berlin"), false}));
}

void KWNativeParser_test::readsRepeats()
{
    const auto model = *read(R"({"startDate": "2030-05-02T00:00:00", "repeatFlag": "RRULE:FREQ=DAILY"})")
                            .dateTimeReminderModel;
    QCOMPARE(model.repeatRule, u"RRULE:FREQ=DAILY"_s);
    QCOMPARE(model.repeatFrom, CXRecurrenceFromDefault);
}

void KWNativeParser_test::takesDefaultRemindersUnlessOneIsNamed()
{
    const char *timed = R"({"startDate": "2030-05-02T17:00:00", "reminder": ["TRIGGER:-PT0S"]})";
    const char *allDay =
        R"({"startDate": "2030-05-02T00:00:00", "isAllDay": true, "reminder": ["TRIGGER:-PT0S"]})";
    QCOMPARE(remindersIn(timed, u"pay at 5"_s), m_defaults.reminders);
    QCOMPARE(remindersIn(allDay, u"pay"_s), m_defaults.allDayReminders);
    for (const QString &named : {u"Remind Me at 5"_s, u"5点提醒我"_s})
        QCOMPARE(remindersIn(timed, named), std::set{CXAlarmTrigger::onTime()});

    QCOMPARE(remindersIn(R"({"startDate": "2030-05-02T17:00:00", "reminder": []})"),
             std::set<CXAlarmTrigger>{});
    QCOMPARE(remindersIn(R"({"startDate": "2030-05-02T17:00:00",
                             "reminder": ["TRIGGER:-PT5M", "TRIGGER:-PT0S", "TRIGGER:-PT300S"]})"),
             (std::set{trigger("TRIGGER:-PT5M"), CXAlarmTrigger::onTime()}));
    QCOMPARE(remindersIn(R"({"startDate": "2030-05-02T17:00:00", "reminder": ["soon"]})"),
             std::set{trigger("soon")});
}

void KWNativeParser_test::turnsWeeksIntoDays()
{
    const auto timed = remindersIn(R"({"startDate": "2030-05-02T17:00:00", "reminder": ["TRIGGER:-P1W"]})");
    QCOMPARE(timed, std::set{CXAlarmTrigger::triggerWithUnit(CXAlarmTrigger::Unit::Days, 7)});
    QCOMPARE(timed.begin()->unit(), CXAlarmTrigger::Unit::Days);
    QCOMPARE(timed.begin()->value(), 7);
    const auto allDay = remindersIn(
        R"({"startDate": "2030-05-02T00:00:00", "isAllDay": true, "reminder": ["TRIGGER:-P2W"]})");
    QCOMPARE(allDay, std::set{CXAlarmTrigger::triggerWithUnit(CXAlarmTrigger::Unit::Days, 14, 9h)});
}

void KWNativeParser_test::locatesPhrases_data()
{
    QTest::addColumn<QStringList>("cells");
    for (const CaseRow &row : readCases("tokens/phrases.txt", 4))
        QTest::newRow(row.where.constData()) << row.cells;
}

void KWNativeParser_test::locatesPhrases()
{
    QFETCH(QStringList, cells);
    const QString text = quotedText(cells[1]);
    TextEntities tags;
    for (const TextRange &each : rangesOf(cells[2]))
        tags.append(std::make_shared<KWTagTextEntity>(each, text.mid(each.location, each.length)));
    const auto found =
        KWNativeParser::fetchRangeForRecognizeString(quotedText(cells[0]), text, tags, Qt::CaseSensitive,
                                                     {0, text.size()}, KWNativeParser::isChineseInput(text));
    QCOMPARE(found ? textOf(QList{*found}) : u"-"_s, cells[3]);
}

void KWNativeParser_test::locatesPhrasesOneAfterTheOther()
{
    const auto found =
        read(R"({"startDate": "2030-05-02T17:00:00", "recognizeStrings": ["5", "5 may", "gone", "5"]})",
             u"5 x 5 may 5"_s);
    QList<TextRange> ranges;
    for (const auto &each : found.recognizedStrings)
        ranges.append(each->range());
    QCOMPARE(textOf(ranges), u"0+1 4+5 10+1"_s);
    QVERIFY(found.recognizedStrings.first()->isDate() && found.recognizedStrings.first()->highlighted());
}

void KWNativeParser_test::searchesTheLongerText()
{
    const QJsonObject dictionary =
        answer(R"({"startDate": "2030-05-02T00:00:00", "recognizeStrings": ["tomorrow"]})");
    const auto placeIn = [&](const QString &input, const QString &original) {
        const auto found = KWNativeParser::parseDic(dictionary, input, original, {}, {m_berlin, m_defaults});
        return found.recognizedStrings.first()->range().location;
    };
    QCOMPARE(placeIn(u"tomorrow"_s, u"pay tomorrow"_s), 4);
    QCOMPARE(placeIn(u"do tomorrow"_s, u"tomorrow"_s), 3);
    QCOMPARE(placeIn(u"do tomorrow"_s, {}), 3);
}

void KWNativeParser_test::tellsChineseInput()
{
    for (const char16_t *text : {u"明天", u"a，b", u"it’s", u"\u0800", u"\uFFFF"})
        QVERIFY2(KWNativeParser::isChineseInput(text), qPrintable(QString::fromUtf16(text)));
    for (const char16_t *text : {u"", u"tomorrow", u"Größe", u"\u07FF", u"😀", u"\xD800"})
        QVERIFY2(!KWNativeParser::isChineseInput(text), qPrintable(QString::fromUtf16(text)));
}

void KWNativeParser_test::tellsTheOrderOfDayAndMonth_data()
{
    QTest::addColumn<bool>("isUSOrUK");
    QTest::addColumn<bool>("is24Hour");
    QTest::addColumn<QString>("languageCode");
    QTest::newRow("en_US") << false << false << u"en"_s;
    QTest::newRow("en_GB") << true << true << u"en"_s;
    QTest::newRow("de_DE") << true << true << u"de"_s;
    QTest::newRow("zh_CN") << false << true << u"zh"_s;
    QTest::newRow("en_IN") << true << false << u"en"_s;
    QTest::newRow("ar_EG") << true << false << u"ar"_s; // with digits of its own
    QTest::newRow("C") << true << true << u"en"_s;      // the month is a word
}

void KWNativeParser_test::tellsTheOrderOfDayAndMonth()
{
    QFETCH(bool, isUSOrUK);
    QFETCH(bool, is24Hour);
    QFETCH(QString, languageCode);
    QLocale::setDefault(QLocale{QString::fromLatin1(QTest::currentDataTag())});
    QCOMPARE(KWNativeParser::isUSOrUKDateFormat(), isUSOrUK);
    QCOMPARE(LocaleDateFormat::current().is24Hour, is24Hour);
    if (QLocale{} != QLocale::c())
        QCOMPARE(QString::fromStdWString(LocaleDateFormat::current().languageCode), languageCode);
}

void KWNativeParser_test::handsTheSettingsToTheLibrary()
{
    const auto startOf = [this](const QString &text) {
        const auto model = parse(text, m_now).dateTimeReminderModel;
        return model ? KWNativeParser::stringFromDate(model->startDateTime->date, m_berlin) : QString{};
    };
    QCOMPARE(startOf(u"call tomorrow evening"_s), u"2030-05-02T17:30:00"_s);
    QCOMPARE(startOf(u"pay 6/5"_s), u"2030-05-06T00:00:00"_s);
    QLocale::setDefault(QLocale{QLocale::English, QLocale::UnitedStates});
    QCOMPARE(startOf(u"pay 6/5"_s), u"2030-06-05T00:00:00"_s);
    QLocale::setDefault(QLocale{QLocale::Chinese, QLocale::China});
    QCOMPARE(startOf(u"明天交房租"_s), u"2030-05-02T00:00:00"_s);

    QVERIFY(!parse(u"pay tomorrow"_s, std::nullopt).dateTimeReminderModel);
    QVERIFY(!parse({}, m_now).dateTimeReminderModel);
}

void KWNativeParser_test::exchangesTimeStamps()
{
    QCOMPARE(KWNativeParser::stringFromDate(m_now + 999ms, m_berlin), u"2030-05-01T09:00:00"_s);
    QCOMPARE(KWNativeParser::stringFromDate(std::nullopt, m_berlin), QString{});
    QCOMPARE(KWNativeParser::dateFromString(u"2030-05-01T09:00:00", m_berlin), m_now);
    QCOMPARE(KWNativeParser::dateFromString(u"", m_berlin), std::nullopt);
    QCOMPARE(KWNativeParser::dateFromString(u"2030-03-31T02:30:00", m_berlin),
             at("2030-03-31 03:30", "Europe/Berlin"));
}

ORVANE_TEST(KWNativeParser_test)
#include "KWNativeParser_test.moc"
