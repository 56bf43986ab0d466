#include "capture/TitleRecognizer.h"

#include "capture/CaseText.h"
#include "corvexkit/time/TimeText.h"
#include "model/text/UnicodeText.h"
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
        QCOMPARE(textOf(found.list), cells[4]);
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

    void keepsWhatIsNotToBeRemoved()
    {
        const QString typed = u"pay #home rent tomorrow !high ~Home"_s;
        const TitleRecognizer keepsDate{m_clock, settings({.removesDate = false})};
        QCOMPARE(keepsDate.recognize(typed).title, u"pay rent tomorrow"_s);
        const TitleRecognizer keepsTag{m_clock, settings({.removesTag = false})};
        QCOMPARE(keepsTag.recognize(typed).title, u"pay #home rent"_s);
        QCOMPARE(keepsTag.recognize(typed).tags, QStringList{u"home"_s});
    }

    void leavesOutWhatIsSwitchedOff()
    {
        const auto piecesWithout = [this](ParseOption option) {
            RecognitionOptions options;
            options.parseOption = ParseOptions{63 & ~int(option)};
            return textOf(m_recognizer.recognize(u"pay #a !low *today 5pm ~Home"_s, options).pieces);
        };
        QCOMPARE(piecesWithout(ParseOption::Tag), u"priority 7+4, date 12+10, list 23+5"_s);
        QCOMPARE(piecesWithout(ParseOption::Priority), u"tag 4+2, date 12+10, list 23+5"_s);
        QCOMPARE(piecesWithout(ParseOption::List), u"tag 4+2, priority 7+4, date 12+10"_s);
        QCOMPARE(piecesWithout(ParseOption::DateToken), u"tag 4+2, priority 7+4, date 13+9, list 23+5"_s);
        QCOMPARE(piecesWithout(ParseOption::Date), u"tag 4+2, priority 7+4, date 12+6, list 23+5"_s);
    }

    void doesNotRecogniseWhatWasUndone()
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

    // In quadratic time this test would not end.
    void readsLongTextsInLinearTime()
    {
        const QString units = u"a| |#|#a |!|!high |~|~Home |~a#b |^x|*|*today |@|@a.b |tomorrow |"
                              u"\"|\"a\" |(|工|~工作|http://a#b |-_"_s;
        for (const QString &unit : units.split(u'|')) {
            const QString typed = unit.repeated(100'000 / unit.size());
            QVERIFY2(areInOrderWithin(typed, m_recognizer.recognize(typed).pieces), qPrintable(unit));
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
