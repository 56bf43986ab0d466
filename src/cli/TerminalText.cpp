#include "cli/TerminalText.h"

#include <algorithm>

namespace {

bool commandsTerminals(QChar unit)
{
    const char16_t code = unit.unicode();
    const bool isDirectional = (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
    return unit.category() == QChar::Other_Control || unit == QChar::LineSeparator ||
           unit == QChar::ParagraphSeparator || isDirectional;
}

} // namespace

QString terminalText(QString text)
{
    std::ranges::replace_if(text, commandsTerminals, QChar{u' '});
    return text;
}
