#include "capture/TaskLines.h"

#include <QRegularExpression>

namespace {

const QRegularExpression &lineBreak()
{
    static const QRegularExpression breaks{QStringLiteral("[\\n\\r\\v\\f\\x{85}\\x{2028}\\x{2029}]+")};
    return breaks;
}

QString withoutListMark(const QString &line)
{
    static const QRegularExpression mark{
        QStringLiteral(R"(^\s*(?:[-*•](?:\s+|$)|\d{1,5}[.)](?:\s+|$))?(?:\[[ xX]?\](?:\s+|$))?)"),
        QRegularExpression::UseUnicodePropertiesOption};
    return line.mid(mark.match(line).capturedLength()).trimmed();
}

} // namespace

QStringList taskLines(const QString &text)
{
    QStringList lines;
    for (const QString &each : text.split(lineBreak()))
        if (!each.trimmed().isEmpty()) lines.append(withoutListMark(each));
    return lines;
}

bool holdsSeveralLines(const QString &text) { return text.trimmed().contains(lineBreak()); }
