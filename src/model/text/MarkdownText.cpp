#include "model/text/MarkdownText.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

QString MarkdownText::escaped(const QString &text)
{
    static const QRegularExpression listMark{u"^(\\s*)([-+]|\\d+[.)])(?=\\s|$|[-\\s]+$)"_s};
    QString result;
    for (const QChar each : text) {
        if (u"\\`*_[]<>#|~&"_s.contains(each)) result += u'\\';
        result += each;
    }
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
