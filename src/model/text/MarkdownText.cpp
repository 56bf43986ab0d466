#include "model/text/MarkdownText.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

QString withEscapedMarks(QStringView text)
{
    QString result;
    for (const QChar each : text) {
        if (u"\\`*_[]<>#|~&"_s.contains(each)) result += u'\\';
        result += each;
    }
    return result;
}

} // namespace

// Brackets belong to an address in pairs, marks at its end to the sentence around it. What is taken is never
// tried again, however long it is.
const QString &MarkdownText::addressPattern()
{
    static const QString pattern = [] {
        const QString outside = uR"(\s\x00-\x1f<>"\x{3000}-\x{303f}\x{ff01}-\x{ff0f}\x{ff1a}-\x{ff1f}())"_s;
        const QString marks = uR"(.,;:!?\]')"_s;
        return uR"(\b(?:https?|mailto|orvane):(?:[%2]*+(?:[^%1%2]++|\([^%1]*+\)))++)"_s.arg(outside, marks);
    }();
    return pattern;
}

QString MarkdownText::escaped(const QString &text)
{
    static const QRegularExpression listMark{u"^(\\s*)([-+]|\\d+[.)])(?=\\s|$|[-\\s]+$)"_s};
    static const QRegularExpression address{addressPattern()};
    QString result;
    qsizetype end = 0;
    for (auto found = address.globalMatch(text); found.hasNext();) {
        const QRegularExpressionMatch each = found.next();
        result += withEscapedMarks(QStringView{text}.sliced(end, each.capturedStart() - end));
        result += u'<' + each.captured() + u'>';
        end = each.capturedEnd();
    }
    result += withEscapedMarks(QStringView{text}.sliced(end));
    // A list, or a line across the page.
    if (const auto mark = listMark.match(result); mark.hasMatch())
        result.insert(mark.capturedEnd(2) - 1, u'\\');
    return result;
}

QString MarkdownText::taskItem(const QString &title, bool isClosed, bool isAbandoned)
{
    const QString text = isAbandoned ? u"~~"_s + escaped(title) + u"~~"_s : escaped(title);
    return (isClosed ? u"- [x] "_s : u"- [ ] "_s) + text;
}
