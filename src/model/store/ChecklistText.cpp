#include "model/store/ChecklistText.h"

#include <QRegularExpression>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

QList<ChecklistText::Item> itemsOfPlainLines(const QStringList &lines)
{
    static const QRegularExpression mark{uR"(^(?:[-*+]|\d{1,9}[.)])\s+)"_s};
    QList<ChecklistText::Item> items;
    for (const QString &line : lines) {
        QString title = line.trimmed();
        title.remove(mark);
        if (!title.isEmpty()) items.append({title});
    }
    return items;
}

// Blank lines at both ends go; white space before the first word stays.
QString withoutBlankEnds(QStringList lines)
{
    while (!lines.isEmpty() && lines.constFirst().trimmed().isEmpty())
        lines.removeFirst();
    while (!lines.isEmpty() && lines.constLast().trimmed().isEmpty())
        lines.removeLast();
    return lines.join(u'\n');
}

} // namespace

ChecklistText ChecklistText::ofText(const QString &text)
{
    static const QRegularExpression itemLine{uR"(^\s*[-*+]\s+\[([ xX])\]\s+(.*\S)\s*$)"_s};
    const QStringList lines = text.split(u'\n');
    ChecklistText checklist;
    QStringList others;
    for (const QString &line : lines) {
        if (const QRegularExpressionMatch item = itemLine.match(line); item.hasMatch())
            checklist.items.append({item.captured(2), item.capturedView(1) != u" "});
        else
            others.append(line);
    }
    if (checklist.items.isEmpty())
        checklist.items = itemsOfPlainLines(lines);
    else
        checklist.description = withoutBlankEnds(others);
    return checklist;
}

QString ChecklistText::toText() const
{
    QStringList lines;
    for (const Item &each : items)
        lines.append((each.isCompleted ? u"- [x] "_s : u"- [ ] "_s) + each.title);
    if (lines.isEmpty()) return description;
    return description.isEmpty() ? lines.join(u'\n') : description + u"\n\n"_s + lines.join(u'\n');
}
