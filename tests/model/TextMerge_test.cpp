#include "model/text/TextMerge.h"

#include "support/TestMain.h"

using namespace Qt::StringLiterals;

class TextMerge_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void joinsTwoChanges_data()
    {
        QTest::addColumn<QString>("base");
        QTest::addColumn<QString>("mine");
        QTest::addColumn<QString>("theirs");
        QTest::addColumn<QString>("merged");
        const auto row = [](const char *name, const QString &base, const QString &mine, const QString &theirs,
                            const QString &merged) {
            QTest::newRow(name) << base << mine << theirs << merged;
        };
        row("only mine", u"a b"_s, u"a b c"_s, u"a b"_s, u"a b c"_s);
        row("only theirs", u"a b"_s, u"a b"_s, u"x b"_s, u"x b"_s);
        row("both the same", u"a"_s, u"ab"_s, u"ab"_s, u"ab"_s);
        row("theirs in front", u"a b c"_s, u"a b c!"_s, u"x b c"_s, u"x b c!"_s);
        row("theirs behind", u"a b c"_s, u"x b c"_s, u"a b c!"_s, u"x b c!"_s);
        row("side by side", u"abcd"_s, u"aXcd"_s, u"abYd"_s, u"aXYd"_s);
        row("the same stretch", u"Buy milk today"_s, u"Buy cream today"_s, u"Buy bread today"_s,
            u"Buy bread|cream today"_s);
        row("at one place", u"ab"_s, u"aXb"_s, u"aYb"_s, u"aY|Xb"_s);
        row("theirs gone", u"abc"_s, u"abXc"_s, u""_s, u"abXc"_s);
        row("from nothing", u""_s, u"mine"_s, u"theirs"_s, u"theirs|mine"_s);
    }
    void joinsTwoChanges()
    {
        QFETCH(const QString, base);
        QFETCH(const QString, mine);
        QFETCH(const QString, theirs);
        QTEST(mergedText(base, mine, theirs, u'|'), "merged");
    }
};

ORVANE_TEST(TextMerge_test)
#include "TextMerge_test.moc"
