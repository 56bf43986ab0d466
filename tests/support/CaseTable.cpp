#include "support/CaseTable.h"

#include <QFile>
#include <QFileInfo>
#include <QTest>

QList<CaseRow> readCases(const char *file, int columns)
{
    const QString path = QStringLiteral(ORVANE_TEST_DATA "/") + QString::fromLatin1(file);
    QFile table{path};
    if (!table.open(QIODevice::ReadOnly)) qFatal("%s cannot be read", qUtf8Printable(path));
    const QByteArray name = QFileInfo{path}.fileName().toUtf8();

    QList<CaseRow> rows;
    const QStringList lines = QString::fromUtf8(table.readAll()).split(u'\n');
    for (int number = 1; number <= lines.size(); ++number) {
        const QString line = lines.at(number - 1).trimmed();
        if (line.isEmpty() || line.startsWith(u'#')) continue;
        CaseRow row{line.split(u'|'), name + ':' + QByteArray::number(number)};
        if (row.cells.size() != columns) qFatal("%s has not %d cells", row.where.constData(), columns);
        for (QString &cell : row.cells)
            cell = cell.trimmed();
        rows.append(row);
    }
    if (rows.isEmpty()) qFatal("%s holds no case", name.constData());
    return rows;
}

void addCaseRows(const char *file, int columns)
{
    QTest::addColumn<QStringList>("cells");
    for (const CaseRow &row : readCases(file, columns))
        QTest::newRow(row.where.constData()) << row.cells;
}
