#include "capture/KWDateTextEntity.h"
#include "capture/KWTagTextEntity.h"

#include "capture/TagCases.h"
#include "support/CaseTable.h"
#include "support/TestMain.h"

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
    void splices_data() { addCaseRows("tokens/splicing.txt", 3); }
    void splices()
    {
        QFETCH(QStringList, cells);
        const TextEntities entities = entitiesOf(cells[0]);
        const TextEntities spliced = KWTextEntity::splicedTextEntitis(entities, letters);
        QCOMPARE(textOf(spliced), cells[1]);
        for (const auto &each : spliced) {
            QVERIFY(entities.contains(each));
            QCOMPARE(each->text(), letters.mid(each->range().location, each->range().length));
        }
        TextEntities dimmed = entities;
        dimmed.removeIf([](const auto &each) { return each->highlighted(); });
        QCOMPARE(textOf(dimmed), cells[2]);
    }

    void comparesAndDescribes()
    {
        const auto make = [](const QString &cell) { return entitiesOf(cell).first(); };
        const auto date = make(u"d2+3"_s);
        QVERIFY(*date == *make(u"d2+3"_s));
        for (const QString &other : {u"d2+4"_s, u"d3+3"_s, u"t2+3"_s})
            QVERIFY2(!(*date == *make(other)), qPrintable(other));
        const auto dimmed = make(u"d2+3"_s);
        dimmed->setHighlighted(false);
        QVERIFY(!(*date == *dimmed) && date->isEqualToTextEntityIngoringHighlighted(*dimmed));
        const KWTextEntity plain{date->range(), date->text(), KWTextEntity::Date};
        QVERIFY2(!(*date == plain), "of another class");
        QCOMPARE(date->description(), u"range: {2, 3}, text: cde, type: other, highlighted: YES"_s);
        QVERIFY(make(u"t0+2"_s)->description().contains(u"type: tag"));
        QVERIFY(dimmed->description().endsWith(u"NO"));

        const auto tag = tagsAt(u"2+3"_s, u"x #ab"_s).first();
        QCOMPARE(tag->tagName(), u"ab"_s);
        QCOMPARE(textOf(QList{tag->rangeOfTagName()}), u"3+2"_s);
    }

    void sortsTheLastFirst()
    {
        QCOMPARE(textOf(KWTextEntity::reversedTextEntities(entitiesOf(u"d2+1 t8+1 d0+1 t2+4"_s))),
                 u"t8+1 d2+1 t2+4 d0+1"_s);
    }

    void removesTags_data() { addCaseRows("tokens/tag-removal.txt", 4); }
    void removesTags()
    {
        QFETCH(QStringList, cells);
        const QString title = quotedText(cells[0]);
        const TagTextEntities entities = tagsAt(cells[1], title);

        QString result;
        QSet<QString> tags{u"left over"_s};
        cx_removeTagTextEntities(title, entities, &result, &tags);
        QCOMPARE(result, quotedText(cells[2]));
        QStringList names = tags.values();
        names.sort();
        QCOMPARE(names.isEmpty() ? u"-"_s : names.join(u' '), cells[3]);
        cx_removeTagTextEntities(title, entities, nullptr, nullptr);
    }
};

ORVANE_TEST(KWTextEntity_test)
#include "KWTextEntity_test.moc"
