#include "nlp/NLPNativeTitleParser.h"
#include "support/CaseTable.h"
#include "support/TestMain.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

const QString wednesdayMorning = u"2026-11-18T10:00:00"_s;
const QByteArray nothing =
    R"({"dueDate":"","isAllDay":false,"recognizeStrings":[],"reminder":[],"repeatFlag":"","startDate":""})";

NLPNativeTitleParser parserWith(const QStringList &settings)
{
    std::array times{9, 0, 13, 0, 17, 0, 20, 0};
    const QStringList names{u"morning"_s, u"afternoon"_s, u"evening"_s, u"night"_s};
    for (const QString &setting : settings) {
        const qsizetype place = names.indexOf(setting.section(u'=', 0, 0));
        if (place < 0) continue;
        const QString time = setting.section(u'=', 1);
        times.at(std::size_t(place) * 2) = time.section(u':', 0, 0).toInt();
        times.at(std::size_t(place) * 2 + 1) = time.section(u':', 1).toInt();
    }
    NLPNativeTitleParser parser;
    parser.setCustomizeHour(9, 0, 13, 0, 17, 0, 20, 0);
    std::apply([&parser](auto... time) { parser.setCustomizeHour(time...); }, times);
    parser.setStartDay(settings.contains("sunday"_L1) ? 1 : 2);
    parser.setIs24DateFormat(settings.contains("24h"_L1));
    parser.setIsUsOrUkDateFormat(!settings.contains("day-first"_L1));
    return parser;
}

QJsonObject decoded(const std::wstring &answer)
{
    return QJsonDocument::fromJson(QString::fromStdWString(answer).toUtf8()).object();
}

QJsonObject reading(const QString &text, const QString &language = u"en"_s,
                    const QString &base = wednesdayMorning)
{
    return decoded(
        parserWith({}).parse(text.toStdWString(), base.toStdWString(), true, language.toStdWString()));
}

QByteArray compact(const QJsonObject &answer) { return QJsonDocument{answer}.toJson(QJsonDocument::Compact); }

QStringList textsOf(const QJsonValue &list)
{
    QStringList texts;
    for (const QJsonValue &text : list.toArray())
        texts << text.toString();
    return texts;
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
    const QString reminders = textsOf(answer.value("reminder"_L1)).join(u", "_s);
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
            rule.isEmpty() ? u"-"_s : rule, textsOf(answer.value("recognizeStrings"_L1)).join(u" + "_s),
            remindersOf(answer, isMarked)};
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
    phrases.removeDuplicates();
    if (begin < 0 || phrases.isEmpty()) qFatal("docs/quick-add.md has no phrases");
    return phrases;
}

} // namespace

class NLPNativeTitleParser_test : public QObject {
    Q_OBJECT

    struct TitleFile {
        const char *name;
        QString language;
    };
    void addTitles(int columns, std::initializer_list<TitleFile> files)
    {
        QTest::addColumn<QStringList>("cells");
        QTest::addColumn<QString>("language");
        for (const auto &[name, language] : files)
            for (const CaseRow &row : readCases(name, columns))
                QTest::addRow("%s %s", row.where.constData(), qPrintable(language)) << row.cells << language;
    }

private Q_SLOTS:
    void readsTitles_data()
    {
        addTitles(
            6,
            {{"dates/english.txt", u"en"_s}, {"dates/english.txt", u"zh"_s}, {"dates/chinese.txt", u"zh"_s}});
    }
    void readsTitles()
    {
        QFETCH(const QStringList, cells);
        QFETCH(const QString, language);
        const QJsonObject answer = reading(cells.at(0), language);
        QCOMPARE(rowOf(answer, true), cells.mid(1));
        // The client looks the phrases up in the text, one after the other.
        qsizetype from = 0;
        for (const QString &phrase : textsOf(answer.value("recognizeStrings"_L1))) {
            const qsizetype at = cells.at(0).indexOf(phrase, from);
            QVERIFY(at >= 0 && !phrase.contains(QChar::ObjectReplacementCharacter));
            from = at + phrase.size();
        }
    }

    void leavesTitlesAlone_data()
    {
        addTitles(1, {{"dates/english-none.txt", u"en"_s},
                      {"dates/english-none.txt", u"zh"_s},
                      {"dates/chinese-none.txt", u"zh"_s},
                      {"dates/english-other.txt", u"en"_s}});
    }
    void leavesTitlesAlone()
    {
        QFETCH(const QStringList, cells);
        QFETCH(const QString, language);
        QCOMPARE(compact(reading(cells.at(0), language)), nothing);
    }

    void documentsWhatIsTested()
    {
        QStringList tested;
        for (const CaseRow &row : readCases("dates/documented.txt", 5))
            tested << row.cells.first();
        QCOMPARE(tested, documentedPhrases(u"## What you can type"_s, u"## How it is read"_s, 2));
    }
    void doesWhatIsDocumented_data() { addCaseRows("dates/documented.txt", 5); }
    void doesWhatIsDocumented()
    {
        QFETCH(const QStringList, cells);
        QStringList meant = cells.mid(1);
        meant.insert(3, cells.first()); // as a whole
        QCOMPARE(rowOf(reading(cells.first(), u"zh"_s), true), meant);
    }

    void leavesAloneWhatIsDocumented()
    {
        for (const QString &phrase :
             documentedPhrases(u"## What is left alone"_s, u"## A further language"_s, 1))
            QVERIFY2(compact(reading(phrase, u"zh"_s)) == nothing, qUtf8Printable(phrase));
    }

    void followsSettings_data() { addCaseRows("dates/settings.txt", 9); }
    void followsSettings()
    {
        QFETCH(const QStringList, cells);
        const QStringList settings = cells.at(0).split(u' ');
        const bool isMarked = !settings.contains("unmarked"_L1);
        const std::wstring language = cells.at(2) == "-"_L1 ? std::wstring{} : cells.at(2).toStdWString();
        const auto answer = parserWith(settings).parse(cells.at(3).toStdWString(), cells.at(1).toStdWString(),
                                                       isMarked, language);
        QCOMPARE(rowOf(decoded(answer), isMarked), cells.mid(4));
    }

    void findsNothingWithoutABase()
    {
        for (const char *base :
             {"", "today", "2026-11-18T", "2026-11-18T10:00", "2026-13-18T10:00:00", "2026-02-30T10:00:00",
              "2026-11-18T24:00:00", "2026-11-18T10:60:00", "2026-11-18 10:00:00", "2026-11-18T10:00:00Z",
              "-026-11-18T10:00:00", "0000-11-18T10:00:00", "2026/11/18", "２０２６-11-18"})
            QVERIFY2(compact(reading(u"Call tomorrow 5pm"_s, u"en"_s, QString::fromUtf8(base))) == nothing,
                     base);
    }

    void findsNothingBeyondTheLastYear()
    {
        const QString lastDay = u"9999-12-31T10:00:00"_s;
        for (const char *title : {"Party tomorrow", "Party in 9999 years", "Party in 2 weeks",
                                  "Party in 24 hours", "Every monday", "Next month", "feb 29"})
            QVERIFY2(compact(reading(QString::fromLatin1(title), u"en"_s, lastDay)) == nothing, title);
        const QJsonObject open = reading(u"10pm-1am"_s, u"en"_s, lastDay);
        QCOMPARE(open.value("startDate"_L1).toString(), u"9999-12-31T22:00:00"_s);
        QCOMPARE(open.value("dueDate"_L1).toString(u"?"_s), QString{});
    }

    // Every hostile unit on its own, at the edges of a phrase and within the white space of one.
    void answersAnyTextWithJson()
    {
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
                  L"remind me" + odd + L"10 minutes" + odd + L"before 5pm"})
                for (const wchar_t *language : {L"en", L"zh", L""}) {
                    const auto answer = parser.parse(text, wednesdayMorning.toStdWString(), true, language);
                    QVERIFY2(decoded(answer).size() == 6, QByteArray::number(int(unit), 16).constData());
                }
        }
    }

    // White space inside a phrase is part of it, and some of that is a control character.
    void writesEachCodePointSoThatItReadsBack()
    {
        for (const QChar space : u"\t\n\r\v\f\u00A0\u3000"_s) {
            const QString phrase = u"tomorrow"_s + space + u"5pm"_s;
            QCOMPARE(textsOf(reading(phrase).value("recognizeStrings"_L1)), QStringList{phrase});
        }
    }

    // Each would run out of stack or of time if the reading went deeper, or came back, with the length.
    void readsLongTexts()
    {
        const QString pieces = u"x| |5 |1-|every |monday, |every monday, tuesday and "
                               u"|\"|“|「|http://|a@b|明天|每周一、|每周一三五|"
                               "12:30 - |3 to |remind me 1 day and |until until friday |一|\uFFFC|'"_s;
        for (const QString &piece : pieces.split(u'|'))
            QVERIFY2(reading(piece.repeated(100000 / piece.size()), u"zh"_s).size() == 6,
                     qUtf8Printable(piece));
    }

    void ignoresImpossibleSettings()
    {
        NLPNativeTitleParser parser = parserWith({});
        for (const int day : {0, 8, -1, 2000000000})
            parser.setStartDay(day);
        parser.setCustomizeHour(-1, 0, 24, 0, 17, -1, 20, 60);
        const auto startOf = [&parser](const wchar_t *title) {
            const auto answer = parser.parse(title, wednesdayMorning.toStdWString(), true, L"en");
            return decoded(answer).value("startDate"_L1).toString();
        };
        QCOMPARE(startOf(L"next sunday"), u"2026-11-29T00:00:00"_s);
        QCOMPARE(startOf(L"tonight"), u"2026-11-18T20:00:00"_s);
    }
};

ORVANE_TEST(NLPNativeTitleParser_test)
#include "NLPNativeTitleParser_test.moc"
