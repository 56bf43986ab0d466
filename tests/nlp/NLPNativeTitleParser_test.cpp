#include "nlp/NLPNativeTitleParser.h"
#include "support/CaseTable.h"
#include "support/TestMain.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

const std::wstring wednesdayMorning = L"2026-11-18T10:00:00";

NLPNativeTitleParser parserWith(const QStringList &settings)
{
    const auto time = [&](QLatin1StringView name, int hour, int minute) {
        const QString prefix = name + u'=';
        for (const QString &setting : settings) {
            if (!setting.startsWith(prefix)) continue;
            const QStringList fields = setting.mid(prefix.size()).split(u':');
            return std::pair{fields.at(0).toInt(), fields.at(1).toInt()};
        }
        return std::pair{hour, minute};
    };
    const auto morning = time("morning"_L1, 9, 0);
    const auto afternoon = time("afternoon"_L1, 13, 0);
    const auto evening = time("evening"_L1, 17, 0);
    const auto night = time("night"_L1, 20, 0);

    NLPNativeTitleParser parser;
    parser.setCustomizeHour(9, 0, 13, 0, 17, 0, 20, 0);
    parser.setCustomizeHour(morning.first, morning.second, afternoon.first, afternoon.second, evening.first,
                            evening.second, night.first, night.second);
    parser.setStartDay(settings.contains("sunday"_L1) ? 1 : 2);
    parser.setIs24DateFormat(settings.contains("24h"_L1));
    parser.setIsUsOrUkDateFormat(!settings.contains("day-first"_L1));
    return parser;
}

QJsonObject decoded(const std::wstring &answer)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(QString::fromStdWString(answer).toUtf8(), &error);
    if (error.error != QJsonParseError::NoError) return {{u"error"_s, error.errorString()}};
    return document.object();
}

QString joined(const QJsonValue &list, const QString &separator)
{
    QStringList texts;
    for (const QJsonValue &text : list.toArray())
        texts << text.toString();
    return texts.join(separator);
}

// A time as the tables write it: a day alone where there is no time.
QString brief(const QJsonValue &time, bool isAllDay)
{
    const QString text = time.toString();
    if (text.isEmpty()) return u"-"_s;
    if (isAllDay) return text.endsWith("T00:00:00"_L1) ? text.left(10) : text;
    return text.endsWith(":00"_L1) ? text.left(16) : text;
}

QString remindersOf(const QJsonObject &answer, bool isMarked)
{
    const QString reminders = joined(answer.value("reminder"_L1), u", "_s);
    const bool isAllDay = answer.value("isAllDay"_L1).toBool();
    const QString usual = isAllDay || !isMarked ? QString{} : u"TRIGGER:-PT0S"_s;
    return reminders.isEmpty() && !isAllDay ? u"none"_s : reminders == usual ? u"-"_s : reminders;
}

QStringList rowOf(const QJsonObject &answer, bool isMarked)
{
    const bool isAllDay = answer.value("isAllDay"_L1).toBool();
    QString rule = answer.value("repeatFlag"_L1).toString();
    if (rule.startsWith("RRULE:"_L1)) rule.remove(0, 6);
    return {brief(answer.value("startDate"_L1), isAllDay), brief(answer.value("dueDate"_L1), isAllDay),
            rule.isEmpty() ? u"-"_s : rule, joined(answer.value("recognizeStrings"_L1), u" + "_s),
            remindersOf(answer, isMarked)};
}

bool isEmptyAnswer(const QJsonObject &answer)
{
    return answer.size() == 6 && answer.value("startDate"_L1).toString(u"?"_s).isEmpty() &&
           answer.value("dueDate"_L1).toString(u"?"_s).isEmpty() &&
           !answer.value("isAllDay"_L1).toBool(true) &&
           answer.value("repeatFlag"_L1).toString(u"?"_s).isEmpty() &&
           answer.value("recognizeStrings"_L1) == QJsonArray{} && answer.value("reminder"_L1) == QJsonArray{};
}

void addCases(const char *file, int columns)
{
    QTest::addColumn<QStringList>("cells");
    for (const CaseRow &row : readCases(file, columns))
        QTest::newRow(row.where.constData()) << row.cells;
}

// The phrases in backticks of the tables between two headings of docs/quick-add.md, from the first
// `cells` cells of each row.
QStringList documentedPhrases(const QString &from, const QString &to, int cells)
{
    QFile document{QStringLiteral(ORVANE_TEST_DATA "/../../docs/quick-add.md")};
    if (!document.open(QIODevice::ReadOnly)) qFatal("docs/quick-add.md cannot be read");
    const QString text = QString::fromUtf8(document.readAll());
    const qsizetype begin = text.indexOf(from);
    QStringList phrases;
    for (const QString &line : text.mid(begin, text.indexOf(to) - begin).split(u'\n')) {
        const QStringList row = line.split(u'|').mid(1, cells);
        if (!line.startsWith(u'|')) continue;
        for (const QString &cell : row) {
            const QStringList pieces = cell.split(u'`');
            for (qsizetype i = 1; i < pieces.size(); i += 2)
                phrases << pieces.at(i);
        }
    }
    if (begin < 0 || phrases.isEmpty()) qFatal("docs/quick-add.md has no phrases");
    return phrases;
}

void addPhrases(const QString &from, const QString &to, int cells)
{
    QTest::addColumn<QString>("phrase");
    for (const QString &phrase : documentedPhrases(from, to, cells))
        QTest::addRow("%s", qUtf8Printable(phrase)) << phrase;
}

} // namespace

class NLPNativeTitleParser_test : public QObject {
    Q_OBJECT

private:
    void checkTitle(const std::wstring &language)
    {
        QFETCH(QStringList, cells);
        const auto answer =
            parserWith({}).parse(cells.at(0).toStdWString(), wednesdayMorning, true, language);
        QCOMPARE(rowOf(decoded(answer), true), cells.mid(1));
    }

    void checkNothing(const std::wstring &language)
    {
        QFETCH(QStringList, cells);
        const auto answer =
            parserWith({}).parse(cells.at(0).toStdWString(), wednesdayMorning, true, language);
        QVERIFY2(isEmptyAnswer(decoded(answer)), qUtf8Printable(QString::fromStdWString(answer)));
    }

private Q_SLOTS:
    void readsEnglish_data() { addCases("dates/english.txt", 6); }
    void readsEnglish() { checkTitle(L"en"); }

    void readsEnglishBesideChinese_data() { addCases("dates/english.txt", 6); }
    void readsEnglishBesideChinese() { checkTitle(L"zh"); }

    void readsChinese_data() { addCases("dates/chinese.txt", 6); }
    void readsChinese() { checkTitle(L"zh"); }

    void leavesEnglishAlone_data() { addCases("dates/english-none.txt", 1); }
    void leavesEnglishAlone()
    {
        checkNothing(L"en");
        checkNothing(L"zh");
    }

    void leavesChineseAlone_data() { addCases("dates/chinese-none.txt", 1); }
    void leavesChineseAlone() { checkNothing(L"zh"); }

    void leavesOtherLanguagesAlone_data() { addCases("dates/english-other.txt", 1); }
    void leavesOtherLanguagesAlone() { checkNothing(L"en"); }

    void readsWhatIsDocumented_data() { addPhrases(u"## What you can type"_s, u"## How it is read"_s, 2); }
    void readsWhatIsDocumented()
    {
        QFETCH(QString, phrase);
        const auto answer =
            decoded(parserWith({}).parse(phrase.toStdWString(), wednesdayMorning, true, L"zh"));
        QCOMPARE(answer.value("recognizeStrings"_L1), QJsonArray{phrase});
    }

    void leavesAloneWhatIsDocumented_data()
    {
        addPhrases(u"## What is left alone"_s, u"## A further language"_s, 1);
    }
    void leavesAloneWhatIsDocumented()
    {
        QFETCH(QString, phrase);
        const auto answer = parserWith({}).parse(phrase.toStdWString(), wednesdayMorning, true, L"zh");
        QVERIFY2(isEmptyAnswer(decoded(answer)), qUtf8Printable(QString::fromStdWString(answer)));
    }

    void followsSettings_data() { addCases("dates/settings.txt", 9); }
    void followsSettings()
    {
        QFETCH(QStringList, cells);
        const QStringList settings = cells.at(0).split(u' ');
        const bool isMarked = !settings.contains("unmarked"_L1);
        const std::wstring language = cells.at(2) == "-"_L1 ? std::wstring{} : cells.at(2).toStdWString();
        const auto answer = parserWith(settings).parse(cells.at(3).toStdWString(), cells.at(1).toStdWString(),
                                                       isMarked, language);
        QCOMPARE(rowOf(decoded(answer), isMarked), cells.mid(4));
    }

    void findsNothingWithoutABase_data()
    {
        QTest::addColumn<QString>("base");
        for (const char *base :
             {"", "today", "2026-11-18T", "2026-11-18T10:00", "2026-13-18T10:00:00", "2026-02-30T10:00:00",
              "2026-11-18T24:00:00", "2026-11-18T10:60:00", "2026-11-18 10:00:00", "2026-11-18T10:00:00Z",
              "-026-11-18T10:00:00", "0000-11-18T10:00:00", "2026/11/18", "２０２６-11-18"})
            QTest::newRow(base) << QString::fromUtf8(base);
    }
    void findsNothingWithoutABase()
    {
        QFETCH(QString, base);
        const auto answer = parserWith({}).parse(L"Call tomorrow 5pm", base.toStdWString(), true, L"en");
        QVERIFY2(isEmptyAnswer(decoded(answer)), qUtf8Printable(QString::fromStdWString(answer)));
    }

    void findsNothingBeyondTheLastYear()
    {
        for (const wchar_t *title : {L"Party tomorrow", L"Party in 9999 years", L"Party in 2 weeks",
                                     L"Party in 24 hours", L"Every monday", L"Next month", L"feb 29"}) {
            const auto answer = parserWith({}).parse(title, L"9999-12-31T10:00:00", true, L"en");
            QVERIFY2(isEmptyAnswer(decoded(answer)), qUtf8Printable(QString::fromStdWString(answer)));
        }
        const auto open = decoded(parserWith({}).parse(L"10pm-1am", L"9999-12-31T10:00:00", true, L"en"));
        QCOMPARE(open.value("startDate"_L1).toString(), u"9999-12-31T22:00:00"_s);
        QCOMPARE(open.value("dueDate"_L1).toString(u"?"_s), QString{});
    }

    void answersAnyTextWithJson_data()
    {
        QTest::addColumn<QString>("language");
        QTest::newRow("English") << u"en"_s;
        QTest::newRow("Chinese") << u"zh"_s;
        QTest::newRow("no language") << QString{};
    }
    void answersAnyTextWithJson();

    void writesEachCodePointSoThatItReadsBack();
    void keepsPhrasesAsTheyStand();
    void readsLongTexts_data();
    void readsLongTexts();
    void ignoresImpossibleSettings();
};

// Every hostile unit on its own, at the edges of a phrase and within the white space of one.
void NLPNativeTitleParser_test::answersAnyTextWithJson()
{
    QFETCH(QString, language);
    const NLPNativeTitleParser parser = parserWith({});
    std::vector<wchar_t> units{wchar_t(0xD800), wchar_t(0xDC00), wchar_t(0xDFFF),   wchar_t(0xFFFE),
                               wchar_t(0xFFFF), wchar_t(0xFFFC), wchar_t(0x10FFFF), wchar_t(0x110000),
                               wchar_t(-1),     wchar_t(0x1F600)};
    for (wchar_t unit = 0; unit < 0x180; ++unit)
        units.push_back(unit);
    for (const wchar_t unit : units) {
        const std::wstring odd(1, unit);
        for (const std::wstring &text :
             {odd, odd + odd, L"a" + odd + L"5pm" + odd, L"tomorrow" + odd + L"5pm",
              L"3" + odd + L"5pm every monday" + odd, odd + L"明天" + odd + L"下午5点",
              L"remind me" + odd + L"10 minutes" + odd + L"before 5pm"}) {
            const auto answer = decoded(parser.parse(text, wednesdayMorning, true, language.toStdWString()));
            QVERIFY2(answer.size() == 6, QByteArray::number(int(unit), 16).constData());
        }
    }
}

// White space inside a phrase is part of it, and some of that is a control character.
void NLPNativeTitleParser_test::writesEachCodePointSoThatItReadsBack()
{
    for (const wchar_t space : {L'\t', L'\n', L'\r', L'\v', L'\f', wchar_t(0xA0), wchar_t(0x3000)}) {
        const std::wstring phrase = std::wstring{L"tomorrow"} + space + L"5pm";
        const auto answer = decoded(parserWith({}).parse(phrase, wednesdayMorning, true, L"en"));
        QCOMPARE(joined(answer.value("recognizeStrings"_L1), u"+"_s), QString::fromStdWString(phrase));
    }
}

// The client looks the phrases up in the text, one after the other.
void NLPNativeTitleParser_test::keepsPhrasesAsTheyStand()
{
    for (const char *file : {"dates/english.txt", "dates/chinese.txt"}) {
        for (const CaseRow &row : readCases(file, 6)) {
            const QString text = row.cells.at(0);
            const auto answer =
                decoded(parserWith({}).parse(text.toStdWString(), wednesdayMorning, true, L"zh"));
            qsizetype from = 0;
            for (const QJsonValue &phrase : answer.value("recognizeStrings"_L1).toArray()) {
                const qsizetype at = text.indexOf(phrase.toString(), from);
                QVERIFY2(at >= 0 && !phrase.toString().contains(QChar::ObjectReplacementCharacter),
                         row.where.constData());
                from = at + phrase.toString().size();
            }
        }
    }
}

void NLPNativeTitleParser_test::readsLongTexts_data()
{
    QTest::addColumn<QString>("piece");
    for (const char *piece : {"x",
                              " ",
                              "5 ",
                              "1-",
                              "every ",
                              "monday, ",
                              "every monday, tuesday and ",
                              "\"",
                              "“",
                              "「",
                              "http://",
                              "a@b",
                              "明天",
                              "每周一、",
                              "每周一三五",
                              "12:30 - ",
                              "3 to ",
                              "remind me 1 day and ",
                              "until until friday ",
                              "一",
                              "\uFFFC",
                              "'"})
        QTest::newRow(piece) << QString::fromUtf8(piece);
}

// Each would run out of stack or of time if the reading went deeper, or came back, with the length.
void NLPNativeTitleParser_test::readsLongTexts()
{
    QFETCH(QString, piece);
    const std::wstring text = piece.repeated(100000 / piece.size()).toStdWString();
    const auto answer = decoded(parserWith({}).parse(text, wednesdayMorning, true, L"zh"));
    QCOMPARE(answer.size(), 6);
}

void NLPNativeTitleParser_test::ignoresImpossibleSettings()
{
    NLPNativeTitleParser parser = parserWith({});
    for (const int day : {0, 8, -1, 2000000000})
        parser.setStartDay(day);
    parser.setCustomizeHour(-1, 0, 24, 0, 17, -1, 20, 60);
    const auto next = decoded(parser.parse(L"next sunday", wednesdayMorning, true, L"en"));
    QCOMPARE(next.value("startDate"_L1).toString(), u"2026-11-29T00:00:00"_s);
    const auto night = decoded(parser.parse(L"tonight", wednesdayMorning, true, L"en"));
    QCOMPARE(night.value("startDate"_L1).toString(), u"2026-11-18T20:00:00"_s);
}

ORVANE_TEST(NLPNativeTitleParser_test)
#include "NLPNativeTitleParser_test.moc"
