#include "support/CaseText.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QStringList>

QString quotedText(const QString &cell)
{
    const QJsonValue text = QJsonDocument::fromJson('[' + cell.toUtf8() + ']').array().at(0);
    if (!text.isString()) qFatal("%s is no text in double quotes", qUtf8Printable(cell));
    return text.toString();
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
