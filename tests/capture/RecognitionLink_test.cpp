#include "capture/RecognitionLink.h"

#include "support/CaseTable.h"
#include "support/TestMain.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

QString blocked(const RecognitionOptions &options)
{
    QStringList texts;
    if (options.donotParseDate) texts << u"date"_s;
    if (options.donotParseAssignee) texts << u"assignee"_s;
    for (const QString &each : options.blockedProjects)
        texts << each;
    for (const KWTaskPriority each : options.blockedPriorities)
        texts << u"!%1"_s.arg(each);
    return texts.isEmpty() ? u"-"_s : texts.join(u' ');
}

} // namespace

class RecognitionLink_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void blocksWhatALinkNames_data() { addCaseRows("tokens/links.txt", 2); }
    void blocksWhatALinkNames()
    {
        QFETCH(const QStringList, cells);
        RecognitionOptions options;
        QCOMPARE(setRecognition(cells[0], Recognition::Blocked, options), cells[1] != u"-");
        QCOMPARE(blocked(options), cells[1]);
        setRecognition(cells[0], Recognition::Allowed, options);
        QCOMPARE(blocked(options), u"-"_s);
    }

    void aLinkKeepsWhatThePieceHolds()
    {
        const auto blockedBy = [](RecognizedPieceType type, const QString &value) {
            const QString link = recognitionLink({type, 0, 1, u"x"_s, value});
            const QJsonObject object = QJsonDocument::fromJson(link.toUtf8()).object();
            if (object.keys() != QStringList{u"type"_s, u"value"_s}) return link;
            RecognitionOptions options;
            setRecognition(link, Recognition::Blocked, options);
            return blocked(options);
        };
        QCOMPARE(blockedBy(RecognizedPieceType::Date, {}), u"date"_s);
        QCOMPARE(blockedBy(RecognizedPieceType::Assignee, u"7"_s), u"assignee"_s);
        QCOMPARE(blockedBy(RecognizedPieceType::Priority, u"0"_s), u"!0"_s);
        const QString name = u"\"Sale\" \\ 清单 \n{}"_s;
        QCOMPARE(blockedBy(RecognizedPieceType::List, name), name);
        QCOMPARE(blockedBy(RecognizedPieceType::Tag, u"x"_s), QString{});
    }
};

ORVANE_TEST(RecognitionLink_test)
#include "RecognitionLink_test.moc"
