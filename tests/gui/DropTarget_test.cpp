#include "views/tasklist/DropTarget.h"

#include "gui/RowMaking.h"
#include "support/CaseTable.h"
#include "support/TestMain.h"

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace {

QList<TaskListRow> rowsOf(const QString &words)
{
    QList<TaskListRow> rows;
    int category = 0;
    for (const QString &each : words.split(u' ', Qt::SkipEmptyParts)) {
        const int depth = int(each.count(u'.'));
        if (each.startsWith(u'[')) {
            if (!rows.isEmpty()) ++category;
            rows.append(sectionRow(each, category));
        } else if (each.startsWith(u'~')) {
            rows.append(itemRow(each, {}, {}, category));
        } else if (each.startsWith(u'&')) {
            rows.append(taskRow(each, {}, 0, category));
            rows.last().takesTasks = rows[rows.size() - 2].takesTasks = false;
        } else if (each == u"more") {
            rows.append({TaskListRow::Kind::LoadMore, each, category});
            rows.last().takesTasks = false;
        } else {
            if (!rows.isEmpty() && depth > rows.last().depth) rows.last().hasChildren = true;
            rows.append(taskRow(each.sliced(depth), {}, depth, category));
        }
    }
    return rows;
}

int rowNamed(const QString &name, const QList<TaskListRow> &rows)
{
    const QString id = name.startsWith(u'[') ? u"section:"_s + name : QString{name}.remove(u'.');
    const auto found = std::ranges::find(rows, id, &TaskListRow::id);
    if (found == rows.end()) qFatal("there is no row %s", qUtf8Printable(name));
    return int(found - rows.begin());
}

QString wordsOf(const TaskDropPlace &place)
{
    const auto orDash = [](const QString &id) { return id.isEmpty() ? u"-"_s : id; };
    return u"%1 %2 %3"_s.arg(place.category).arg(orDash(place.afterTaskID), orDash(place.parentTaskID));
}

} // namespace

class DropTarget_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void dropsWhereThePointerIs_data() { addCaseRows("gui/drops.txt", 4); }
    void dropsWhereThePointerIs()
    {
        QFETCH(const QStringList, cells);
        const QList<TaskListRow> rows = rowsOf(cells[0]);
        const QStringList moving = cells[1].split(u',');
        const QStringList pointer = cells[2].split(u' ');
        const std::map<QString, double> shares{{u"top"_s, 0.1}, {u"middle"_s, 0.5}, {u"bottom"_s, 0.9}};
        const auto target = dropTargetAt(rows, rowNamed(pointer[0], rows), shares.at(pointer[1]),
                                         {moving.begin(), moving.end()});
        if (!target) {
            QCOMPARE(cells[3], u"nothing"_s);
            return;
        }
        const bool isRow = target->mark == DropTarget::Mark::Onto;
        QCOMPARE(wordsOf(target->place) + (isRow ? u" row"_s : u" line"_s), cells[3]);
    }

    void movesByKey_data() { addCaseRows("gui/key-moves.txt", 4); }
    void movesByKey()
    {
        QFETCH(const QStringList, cells);
        const KeyMove move = cells[2] == u"up" ? KeyMove::Up : KeyMove::Down;
        const auto place = placeByKey(rowsOf(cells[0]), cells[1].split(u','), move);
        QCOMPARE(place ? wordsOf(*place) : u"nothing"_s, cells[3]);
    }
};

ORVANE_TEST(DropTarget_test)
#include "DropTarget_test.moc"
