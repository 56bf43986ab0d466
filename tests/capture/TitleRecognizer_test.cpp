#include "capture/TitleRecognizer.h"

#include "capture/CaseText.h"
#include "capture/UnicodeText.h"
#include "corvexkit/time/TimeText.h"
#include "support/CaseTable.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"

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

RecognitionSettings settings(const KWSmartRecognitionConfiguration &recognition = {})
{
    return {{},
            recognition,
            {},
            ListNames{{list(u"i"_s, u"Inbox"_s), list(u"o"_s, u"Home Office"_s), list(u"h"_s, u"Home"_s),
                       list(u"c"_s, u"C# work"_s), list(u"w"_s, u"工作"_s)}}};
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
    void understandsTitles_data();
    void understandsTitles();
    void keepsWhatIsNotToBeRemoved();
    void leavesOutWhatIsSwitchedOff_data();
    void leavesOutWhatIsSwitchedOff();
    void doesNotRecogniseWhatWasUndone();
    void tellsWhatUndoingAPieceBlocks();
    void readsLongTextsInLinearTime_data();
    void readsLongTextsInLinearTime();
    void answersAnyText();
};

void TitleRecognizer_test::understandsTitles_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QStringList>("cells");
    const auto addCases = [](const char *file, const QLocale &locale) {
        for (const CaseRow &row : readCases(file, 7))
            QTest::newRow(row.where.constData()) << locale << row.cells;
    };
    addCases("tokens/titles.txt", QLocale::c());
    addCases("tokens/titles-chinese.txt", QLocale{QLocale::Chinese, QLocale::China});
}

void TitleRecognizer_test::understandsTitles()
{
    QFETCH(QLocale, locale);
    QFETCH(QStringList, cells);
    QLocale::setDefault(locale);
    const auto restore = qScopeGuard([] { QLocale::setDefault(QLocale::c()); });
    const QString typed = quotedText(cells[0]);
    const TitleRecognition found = m_recognizer.recognize(typed);
    QCOMPARE(found.title, quotedText(cells[1]));
    QCOMPARE(found.tags.isEmpty() ? u"-"_s : found.tags.join(u' '), cells[2]);
    QCOMPARE(found.priority ? QString::number(*found.priority) : u"-"_s, cells[3]);
    QCOMPARE(textOf(found.list), cells[4]);
    QCOMPARE(startOf(found), cells[5]);
    QCOMPARE(textOf(found.pieces), cells[6]);
    for (const RecognizedPiece &each : found.pieces)
        QCOMPARE(each.text, typed.mid(each.location, each.length));
}

void TitleRecognizer_test::keepsWhatIsNotToBeRemoved()
{
    const QString typed = u"pay #home rent tomorrow !high ~Home"_s;
    const TitleRecognizer keepsDate{m_clock, settings({.removesDate = false})};
    QCOMPARE(keepsDate.recognize(typed).title, u"pay rent tomorrow"_s);
    const TitleRecognizer keepsTag{m_clock, settings({.removesTag = false})};
    QCOMPARE(keepsTag.recognize(typed).title, u"pay #home rent"_s);
    QCOMPARE(keepsTag.recognize(typed).tags, QStringList{u"home"_s});
}

void TitleRecognizer_test::leavesOutWhatIsSwitchedOff_data()
{
    QTest::addColumn<int>("option");
    QTest::addColumn<QString>("pieces");
    const auto without = [](const char *name, ParseOption option, const char *pieces) {
        QTest::newRow(name) << int(option) << QString::fromLatin1(pieces);
    };
    // "pay #a !low *today 5pm ~Home"
    without("tags", ParseOption::Tag, "priority 7+4, date 12+10, list 23+5");
    without("priorities", ParseOption::Priority, "tag 4+2, date 12+10, list 23+5");
    without("lists", ParseOption::List, "tag 4+2, priority 7+4, date 12+10");
    without("assignees", ParseOption::Assignee, "tag 4+2, priority 7+4, date 12+10, list 23+5");
    without("date marks", ParseOption::DateToken, "tag 4+2, priority 7+4, date 13+9, list 23+5");
    without("plain dates", ParseOption::Date, "tag 4+2, priority 7+4, date 12+6, list 23+5");
}

void TitleRecognizer_test::leavesOutWhatIsSwitchedOff()
{
    QFETCH(int, option);
    QFETCH(QString, pieces);
    RecognitionOptions options;
    options.parseOption = ParseOptions{63 & ~option};
    QCOMPARE(textOf(m_recognizer.recognize(u"pay #a !low *today 5pm ~Home"_s, options).pieces), pieces);
}

void TitleRecognizer_test::doesNotRecogniseWhatWasUndone()
{
    const QString typed = u"pay !low ~Home *today"_s;
    const auto pieces = [&](const RecognitionOptions &options) {
        return textOf(m_recognizer.recognize(typed, options).pieces);
    };
    QCOMPARE(pieces({.donotParseDate = true}), u"priority 4+4, list 9+5"_s);
    QCOMPARE(pieces({.blockedProjects = {u"h"_s}}), u"priority 4+4, date 15+6"_s);
    QCOMPARE(pieces({.blockedPriorities = {KWTaskPriorityLow}}), u"list 9+5, date 15+6"_s);

    const RecognitionOptions noSale{.blockedProjects = {u"Sale"_s}};
    QCOMPARE(textOf(m_recognizer.recognize(u"launch ~Sale"_s, noSale).pieces), u"-"_s);
    const RecognitionOptions noOffice{.blockedProjects = {u"o"_s}};
    QCOMPARE(textOf(m_recognizer.recognize(u"call ~Home Office"_s, noOffice).list), u"Home"_s);

    const TitleRecognizer noPlainDates{m_clock, settings({.dateEnabled = false})};
    QCOMPARE(textOf(noPlainDates.recognize(u"today pay *tomorrow"_s).pieces), u"date 10+9"_s);
}

void TitleRecognizer_test::tellsWhatUndoingAPieceBlocks()
{
    const auto values = [this](const QString &typed) {
        QStringList found;
        for (const RecognizedPiece &each : m_recognizer.recognize(typed).pieces)
            found.append(each.value);
        return found;
    };
    QCOMPARE(values(u"pay today #a !high ~Home"_s), (QStringList{{}, {}, u"5"_s, u"h"_s}));
    QCOMPARE(values(u"launch ~Spring sale"_s), QStringList{u"Spring sale"_s});
}

void TitleRecognizer_test::readsLongTextsInLinearTime_data()
{
    QTest::addColumn<QString>("unit");
    for (const char *unit :
         {"a",       " ", "#",     "#a ",       "!",  "!high ", "~", "~Home ", "~a#b ", "^x",          "*",
          "*today ", "@", "@a.b ", "tomorrow ", "\"", "\"a\" ", "(", "工",     "~工作", "http://a#b ", "-_"})
        QTest::newRow(unit) << QString::fromUtf8(unit);
}

// In quadratic time this test would not end.
void TitleRecognizer_test::readsLongTextsInLinearTime()
{
    QFETCH(QString, unit);
    const QString typed = unit.repeated(100'000 / unit.size());
    const TitleRecognition found = m_recognizer.recognize(typed);
    qsizetype end = 0;
    for (const RecognizedPiece &each : found.pieces) {
        QVERIFY(each.location >= end && each.length > 0);
        end = each.location + each.length;
    }
    QVERIFY(end <= typed.size());
}

void TitleRecognizer_test::answersAnyText()
{
    static const QStringList parts{
        u"#"_s,  u"a"_s,        u"!"_s,        u"high"_s,   u"~"_s,   u"Home"_s,        u" "_s,
        u"  "_s, u"@"_s,        u"*"_s,        u"today"_s,  u"5pm"_s, u"every"_s,       u"\n"_s,
        u"\""_s, u"“"_s,        u"”"_s,        u"明天"_s,   u"＃"_s,  u"！"_s,          u"～"_s,
        u"("_s,  u"\uFFFC"_s,   u"\u0301"_s,   u"\u200D"_s, u"-"_s,   u"http://x.y/"_s, u"remind me"_s,
        u"😀"_s,  QChar{0xD83D}, QChar{0xDE00}, QChar{0}};
    QRandomGenerator random{20300501};
    for (int round = 0; round < 5000; ++round) {
        QString typed;
        for (int count = random.bounded(12); count > 0; --count)
            typed += parts[random.bounded(int(parts.size()))];
        const TitleRecognition found = m_recognizer.recognize(typed);
        const QString whole = withoutBrokenSurrogates(typed);
        qsizetype end = 0;
        for (const RecognizedPiece &each : found.pieces) {
            QVERIFY2(each.location >= end && each.length > 0, qPrintable(typed));
            QCOMPARE(each.text, whole.mid(each.location, each.length));
            end = each.location + each.length;
        }
        QVERIFY2(end <= typed.size(), qPrintable(typed));
        QVERIFY2(found.title.isValidUtf16() && !found.title.contains(u'\n'), qPrintable(typed));
        QCOMPARE(found.title, found.title.trimmed());
        QCOMPARE(m_recognizer.recognize(whole).title, found.title);
    }
}

ORVANE_TEST(TitleRecognizer_test)
#include "TitleRecognizer_test.moc"
