#include "capture/KWNativeParser.h"

#include "capture/LocaleDateFormat.h"
#include "capture/TagCases.h"
#include "model/settings/KWTaskDefaultConfiguration.h"
#include "support/Answers.h"
#include "support/CaseTable.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;
using namespace std::chrono;

class KWNativeParser_test : public QObject {
    Q_OBJECT

    const CXTimeZone m_berlin = *CXTimeZone::named(u"Europe/Berlin"_s);
    const Instant m_now = at("2030-05-01 09:00", "Europe/Berlin");
    KWTaskDefaultConfiguration m_defaults;

    KWReminderModelFromNaturalLanguage read(const QString &json, const QString &input,
                                            const QString &original) const
    {
        const QJsonDocument answer = QJsonDocument::fromJson(json.toUtf8());
        if (!answer.isObject()) qFatal("%s is no JSON object", qUtf8Printable(json));
        return KWNativeParser::parseDic(answer.object(), input, original, {}, {m_berlin, m_defaults});
    }
    QString placesIn(const QString &json, const QString &input, const QString &original) const
    {
        QList<TextRange> ranges;
        for (const auto &each : read(json, input, original).recognizedStrings)
            ranges.append(each->range());
        return textOf(ranges);
    }
    QString described(const std::optional<KWDateTime> &time) const
    {
        if (!time) return u"-"_s;
        const QString text = KWNativeParser::stringFromDate(time->date, m_berlin);
        return time->hasTime ? text : u"all-day "_s + text;
    }

private Q_SLOTS:
    void initTestCase()
    {
        const auto trigger = &CXAlarmTrigger::triggerWithRepresentation;
        m_defaults.reminders = {trigger(u"TRIGGER:-PT10M"_s, false)};
        m_defaults.allDayReminders = {trigger(u"TRIGGER:-P0DT15H0M0S"_s, true)};
    }
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void readsAnswers_data() { addCaseRows("tokens/answers.txt", 6); }
    void readsAnswers()
    {
        QFETCH(QStringList, cells);
        const KWReminderModelFromNaturalLanguage found = read(cells[0], cells[1], cells[1]);
        QVERIFY(found.recognizedStrings.isEmpty());
        QCOMPARE(found.dateTimeReminderModel.has_value(), cells[2] != u"-");
        const KWTaskDateTimeReminderModel model =
            found.dateTimeReminderModel.value_or(KWTaskDateTimeReminderModel{});
        QCOMPARE(described(model.startDateTime), cells[2]);
        QCOMPARE(described(model.endDateTime), cells[3]);
        QCOMPARE(model.repeatRule, cells[4] == u"-" ? QString{} : cells[4]);
        const QString reminders = joined(model.alarmTriggers, &CXAlarmTrigger::representation);
        QCOMPARE(reminders.isEmpty() ? u"-"_s : reminders, cells[5]);
    }

    void locatesPhrases_data() { addCaseRows("tokens/phrases.txt", 4); }
    void locatesPhrases()
    {
        QFETCH(QStringList, cells);
        const QString text = quotedText(cells[1]);
        const TagTextEntities tags = tagsAt(cells[2], text);
        const auto found = KWNativeParser::fetchRangeForRecognizeString(
            quotedText(cells[0]), text, {tags.begin(), tags.end()}, Qt::CaseSensitive, {0, text.size()},
            KWNativeParser::isChineseInput(text));
        QCOMPARE(found ? textOf(QList{*found}) : u"-"_s, cells[3]);
    }

    void locatesPhrasesOneAfterTheOtherInTheLongerText()
    {
        const QString four =
            uR"({"startDate": "2030-05-02T17:00:00", "recognizeStrings": ["5", "5 may", "gone", "5"]})"_s;
        QCOMPARE(placesIn(four, u"5 x 5 may 5"_s, u"5 x 5 may 5"_s), u"0+1 4+5 10+1"_s);
        const QString one = uR"({"startDate": "2030-05-02T00:00:00", "recognizeStrings": ["tomorrow"]})"_s;
        QCOMPARE(placesIn(one, u"tomorrow"_s, u"pay tomorrow"_s), u"4+8"_s);
        QCOMPARE(placesIn(one, u"do tomorrow"_s, u"tomorrow"_s), u"3+8"_s);
    }

    void tellsChineseInput()
    {
        for (const char16_t *text : {u"明天", u"a，b", u"it’s", u"\u0800", u"\uFFFF"})
            QVERIFY2(KWNativeParser::isChineseInput(text), qPrintable(QString::fromUtf16(text)));
        for (const char16_t *text : {u"", u"tomorrow", u"Größe", u"\u07FF", u"😀", u"\xD800"})
            QVERIFY2(!KWNativeParser::isChineseInput(text), qPrintable(QString::fromUtf16(text)));
    }

    void tellsHowALocaleWritesDates_data() { addCaseRows("tokens/locales.txt", 4); }
    void tellsHowALocaleWritesDates()
    {
        QFETCH(QStringList, cells);
        QLocale::setDefault(QLocale{cells[0]});
        const LocaleDateFormat format = LocaleDateFormat::current();
        QCOMPARE(KWNativeParser::isUSOrUKDateFormat(), cells[1] == u"yes");
        QCOMPARE(format.is24Hour, cells[2] == u"yes");
        if (cells[3] != u"-") QCOMPARE(QString::fromStdWString(format.languageCode), cells[3]);
    }

    void handsTheSettingsToTheLibrary()
    {
        const auto startOf = [this](const QString &text, std::optional<Instant> base) {
            const auto found = KWNativeParser::parse(text, base, 2, 9h, 13h, 17h + 30min, 20h, text, {},
                                                     {m_berlin, m_defaults});
            return described(
                found.dateTimeReminderModel.value_or(KWTaskDateTimeReminderModel{}).startDateTime);
        };
        QCOMPARE(startOf(u"call tomorrow evening"_s, m_now), u"2030-05-02T17:30:00"_s);
        QCOMPARE(startOf(u"pay 6/5"_s, m_now), u"all-day 2030-05-06T00:00:00"_s);
        QLocale::setDefault(QLocale{QLocale::English, QLocale::UnitedStates});
        QCOMPARE(startOf(u"pay 6/5"_s, m_now), u"all-day 2030-06-05T00:00:00"_s);
        QLocale::setDefault(QLocale{QLocale::Chinese, QLocale::China});
        QCOMPARE(startOf(u"明天交房租"_s, m_now), u"all-day 2030-05-02T00:00:00"_s);
        QCOMPARE(startOf(u"pay tomorrow"_s, std::nullopt), u"-"_s);
        QCOMPARE(startOf({}, m_now), u"-"_s);
        QCOMPARE(KWNativeParser::stringFromDate(m_now + 999ms, m_berlin), u"2030-05-01T09:00:00"_s);
    }
};

ORVANE_TEST(KWNativeParser_test)
#include "KWNativeParser_test.moc"
