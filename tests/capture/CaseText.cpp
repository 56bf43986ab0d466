#include "capture/CaseText.h"

#include <QStringList>

namespace {

QChar escaped(const QString &cell, qsizetype &position)
{
    const QChar code = cell.at(position++);
    if (code == u'n') return u'\n';
    if (code == u'r') return u'\r';
    if (code == u't') return u'\t';
    if (code != u'u') return code;
    bool isNumber = false;
    const ushort unit = cell.mid(position, 4).toUShort(&isNumber, 16);
    if (!isNumber) qFatal("%s holds a broken \\u", qUtf8Printable(cell));
    position += 4;
    return QChar{unit};
}

} // namespace

QString quotedText(const QString &cell)
{
    if (cell.size() < 2 || cell.front() != u'"' || cell.back() != u'"')
        qFatal("%s is not in double quotes", qUtf8Printable(cell));
    const QString inner = cell.mid(1, cell.size() - 2);
    QString text;
    for (qsizetype i = 0; i < inner.size();) {
        const QChar unit = inner.at(i++);
        text += unit == u'\\' && i < inner.size() ? escaped(inner, i) : unit;
    }
    return text;
}

QList<TextRange> rangesOf(const QString &cell)
{
    QList<TextRange> ranges;
    if (cell == u'-') return ranges;
    for (const QString &each : cell.split(u' ', Qt::SkipEmptyParts)) {
        const qsizetype plus = each.indexOf(u'+');
        if (plus < 1) qFatal("%s is no range such as 3+5", qUtf8Printable(each));
        ranges.append({each.left(plus).toLongLong(), each.mid(plus + 1).toLongLong()});
    }
    return ranges;
}

QString textOf(const QList<TextRange> &ranges)
{
    QStringList texts;
    for (const TextRange &each : ranges)
        texts.append(QStringLiteral("%1+%2").arg(each.location).arg(each.length));
    return texts.isEmpty() ? QStringLiteral("-") : texts.join(u' ');
}
