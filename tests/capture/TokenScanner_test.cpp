#include "capture/TokenScanner.h"

#include "capture/TypedToken.h"
#include "support/CaseTable.h"
#include "support/CaseText.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

namespace {

const QStringList kinds{u"tag"_s, u"priority"_s, u"list"_s, u"assignee"_s, u"date"_s};

QString textOf(const QList<KWCandidateEntity> &tokens)
{
    QStringList texts;
    for (const KWCandidateEntity &each : tokens)
        texts.append(
            u"%1+%2 %3"_s.arg(each.range.location).arg(each.range.length).arg(each.absString).trimmed());
    return texts.isEmpty() ? u"-"_s : texts.join(u"; "_s);
}

} // namespace

class TokenScanner_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void findsTokens_data() { addCaseRows("tokens/scanners.txt", 3); }
    void findsTokens()
    {
        QFETCH(QStringList, cells);
        QVERIFY2(kinds.contains(cells[0]), qPrintable(cells[0]));
        const TokenKind kind{1 << kinds.indexOf(cells[0])};
        const QString text = quotedText(cells[1]);
        const QList<KWCandidateEntity> tokens = TokenScanner::scan(kind, text);
        QCOMPARE(textOf(tokens), cells[2]);
        for (const KWCandidateEntity &each : tokens)
            QCOMPARE(each.string, text.mid(each.range.location, each.range.length));
        if (!tokens.isEmpty()) QVERIFY(TokenScanner::kindsIn(text).testFlag(kind));
    }

    void findsTheTypedToken_data() { addCaseRows("tokens/typed.txt", 4); }
    void findsTheTypedToken()
    {
        QFETCH(QStringList, cells);
        QString text = quotedText(cells[0]);
        const qsizetype caret = text.indexOf(u'¦');
        text.remove(caret, 1);
        const auto token = TypedToken::find(text, caret, TokenKinds{31});
        QCOMPARE(token.has_value(), cells[1] != u"-");
        if (!token) return;
        QCOMPARE(token->kind, TokenKind{1 << kinds.indexOf(cells[1])});
        QCOMPARE(textOf(QList{token->range}), cells[2]);
        QCOMPARE(token->keyword, cells[3]);
    }

    void completesWhatIsTyped_data() { addCaseRows("tokens/completed.txt", 3); }
    void completesWhatIsTyped()
    {
        QFETCH(QStringList, cells);
        QString text = quotedText(cells[0]);
        const qsizetype caret = text.indexOf(u'¦');
        text.remove(caret, 1);
        const TextRange replaced = TypedToken::find(text, caret, TokenKinds{31})->rangeReplacedBy(cells[1]);
        QCOMPARE(text.replace(replaced.location, replaced.length, u"@ "_s), quotedText(cells[2]));
    }
};

ORVANE_TEST(TokenScanner_test)
#include "TokenScanner_test.moc"
