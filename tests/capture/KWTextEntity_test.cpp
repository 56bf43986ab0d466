#include "capture/KWDateTextEntity.h"
#include "capture/KWTagTextEntity.h"

#include "capture/CaseText.h"
#include "support/CaseTable.h"
#include "support/TestMain.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString letters = u"abcdefghij"_s;

TextEntities entitiesOf(const QString &cell)
{
    TextEntities entities;
    if (cell == u'-') return entities;
    for (const QString &each : cell.split(u' ')) {
        const TextRange range = rangesOf(each.mid(1)).value(0);
        const QString text = letters.mid(range.location, range.length);
        if (each.front() == u'd')
            entities.append(std::make_shared<KWDateTextEntity>(range, text));
        else
            entities.append(std::make_shared<KWTagTextEntity>(range, text));
    }
    return entities;
}

QString textOf(const TextEntities &entities)
{
    QStringList texts;
    for (const auto &each : entities)
        texts.append((each->isDate() ? u'd' : u't') + textOf(QList{each->range()}));
    return texts.isEmpty() ? u"-"_s : texts.join(u' ');
}

} // namespace

class KWTextEntity_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void splices_data();
    void splices();
    void sharesWhatItSplices();
    void comparesInEverything();
    void describesItself();
    void sortsTheLastFirst();
    void removesTags_data();
    void removesTags();
    void removesManyTagsInLinearTime();
};

void KWTextEntity_test::splices_data()
{
    QTest::addColumn<QStringList>("cells");
    for (const CaseRow &row : readCases("tokens/splicing.txt", 3))
        QTest::newRow(row.where.constData()) << row.cells;
}

void KWTextEntity_test::splices()
{
    QFETCH(QStringList, cells);
    const TextEntities entities = entitiesOf(cells[0]);
    const TextEntities spliced = KWTextEntity::splicedTextEntitis(entities, letters);
    QCOMPARE(textOf(spliced), cells[1]);
    for (const auto &each : spliced)
        QCOMPARE(each->text(), letters.mid(each->range().location, each->range().length));

    TextEntities dimmed = entities;
    dimmed.removeIf([](const auto &each) { return each->highlighted(); });
    QCOMPARE(textOf(dimmed), cells[2]);
}

void KWTextEntity_test::sharesWhatItSplices()
{
    const TextEntities entities = entitiesOf(u"d0+5 t3+5"_s);
    const TextEntities spliced = KWTextEntity::splicedTextEntitis(entities, letters);
    QCOMPARE(spliced.first(), entities.first());
    QCOMPARE(entities.first()->range(), (TextRange{0, 8}));
    QCOMPARE(entities.first()->text(), u"abcdefgh"_s);
}

void KWTextEntity_test::comparesInEverything()
{
    const KWTextEntity one{{0, 1}, u"#a"_s, KWTextEntity::Tag};
    KWTextEntity other = one;
    QVERIFY(one == other && one.highlighted());
    other.setHighlighted(false);
    QVERIFY(one != other && one.isEqualToTextEntityIngoringHighlighted(other));
    for (const KWTextEntity &different : {KWTextEntity{{1, 1}, u"#a"_s, 1}, KWTextEntity{{0, 2}, u"#a"_s, 1},
                                          KWTextEntity{{0, 1}, u"#b"_s, 1}, KWTextEntity{{0, 1}, u"#a"_s, 0}})
        QVERIFY(one != different && !one.isEqualToTextEntityIngoringHighlighted(different));
    QVERIFY(!one.isEqualToTextEntity(KWTagTextEntity{{0, 1}, u"#a"_s}));
    QVERIFY(one.hash() == one.hash());
}

void KWTextEntity_test::describesItself()
{
    KWTextEntity entity{{2, 3}, u"%1a"_s, KWTextEntity::Tag};
    QCOMPARE(entity.description(), u"range: {2, 3}, text: %1a, type: tag, highlighted: YES"_s);
    entity.setType(KWTextEntity::Date);
    entity.setHighlighted(false);
    QCOMPARE(entity.description(), u"range: {2, 3}, text: %1a, type: other, highlighted: NO"_s);
}

void KWTextEntity_test::sortsTheLastFirst()
{
    QCOMPARE(textOf(KWTextEntity::reversedTextEntities(entitiesOf(u"d2+1 t8+1 d0+1 t2+4"_s))),
             u"t8+1 d2+1 t2+4 d0+1"_s);
}

void KWTextEntity_test::removesTags_data()
{
    QTest::addColumn<QStringList>("cells");
    for (const CaseRow &row : readCases("tokens/tag-removal.txt", 4))
        QTest::newRow(row.where.constData()) << row.cells;
}

void KWTextEntity_test::removesTags()
{
    QFETCH(QStringList, cells);
    const QString title = quotedText(cells[0]);
    TagTextEntities entities;
    for (const TextRange &each : rangesOf(cells[1]))
        entities.append(std::make_shared<KWTagTextEntity>(each, title.mid(each.location, each.length)));

    QString result;
    QSet<QString> tags{u"left over"_s};
    cx_removeTagTextEntities(title, entities, &result, &tags);
    QCOMPARE(result, quotedText(cells[2]));
    QStringList names = tags.values();
    names.sort();
    QCOMPARE(names.isEmpty() ? u"-"_s : names.join(u' '), cells[3]);

    QString alone;
    cx_removeTagTextEntities(title, entities, &alone, nullptr);
    QCOMPARE(alone, result);
    cx_removeTagTextEntities(title, entities, nullptr, nullptr);
}

// In quadratic time this test would not end.
void KWTextEntity_test::removesManyTagsInLinearTime()
{
    const QString title = u"#a x "_s.repeated(100'000);
    QString result;
    cx_removeTagTextEntities(title, KWTagTextEntity::validEntitiesInText(title), &result, nullptr);
    QCOMPARE(result, u"x "_s.repeated(100'000));
}

ORVANE_TEST(KWTextEntity_test)
#include "KWTextEntity_test.moc"
