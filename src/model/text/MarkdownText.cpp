#include "model/text/MarkdownText.h"

using namespace Qt::StringLiterals;

QString MarkdownText::escaped(const QString &text)
{
    QString result;
    for (const QChar each : text) {
        if (u"\\`*_[]<>#|~"_s.contains(each)) result += u'\\';
        result += each;
    }
    return result;
}

QString MarkdownText::taskItem(const QString &title, bool isClosed, bool isAbandoned)
{
    const QString text = isAbandoned ? u"~~"_s + escaped(title) + u"~~"_s : escaped(title);
    return (isClosed ? u"- [x] "_s : u"- [ ] "_s) + text;
}
