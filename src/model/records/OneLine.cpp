#include "model/records/OneLine.h"

#include <algorithm>

namespace {

bool isLineBreak(QChar unit)
{
    return unit == u'\n' || unit == u'\r' || unit == u'\v' || unit == u'\f' || unit == u'\u0085' ||
           unit == QChar::LineSeparator || unit == QChar::ParagraphSeparator;
}

} // namespace

QString lineBreaksAsSpaces(QString text)
{
    if (std::ranges::any_of(text, isLineBreak)) {
        text.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
        std::ranges::replace_if(text, isLineBreak, QChar{u' '});
    }
    return text;
}

QString onOneLine(QString text)
{
    // The store keeps UTF-8, which has no half of a surrogate pair.
    if (!text.isValidUtf16()) text = QString::fromUtf8(text.toUtf8());
    return lineBreaksAsSpaces(std::move(text)).trimmed();
}
