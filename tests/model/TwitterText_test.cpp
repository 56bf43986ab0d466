#include "model/text/TwitterText.h"

#include "model/text/TagName.h"
#include "support/CaseTable.h"
#include "support/CaseText.h"
#include "support/TestMain.h"

class TwitterText_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void findsHashtags_data() { addCaseRows("tokens/hashtags.txt", 3); }
    void findsHashtags()
    {
        QFETCH(QStringList, cells);
        const QString text = quotedText(cells[0]);
        const QList<TextRange> valid = TwitterText::cx_validHashtagsInText(text);
        QCOMPARE(textOf(valid), cells[1]);
        QCOMPARE(textOf(TwitterText::cx_possibleHashtagsInText(text)), cells[2]);
        // What is found in a text can be the name of a tag.
        for (const TextRange &each : valid)
            QVERIFY(!isContainsSpecialCharactersForTag(text.sliced(each.location + 1, each.length - 1)));
    }
};

ORVANE_TEST(TwitterText_test)
#include "TwitterText_test.moc"
