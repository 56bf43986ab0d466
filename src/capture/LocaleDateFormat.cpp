#include "capture/LocaleDateFormat.h"

#include <QDate>

#include <optional>

namespace {

QString withAsciiDigits(QString text)
{
    for (QChar &unit : text)
        if (unit.isDigit()) unit = QChar(char16_t(u'0' + unit.digitValue()));
    return text;
}

bool standsDayFirst(const QLocale &locale)
{
    const QString text = withAsciiDigits(locale.toString(QDate{2017, 10, 15}, QLocale::ShortFormat));
    const qsizetype month = text.indexOf(QLatin1StringView{"10"});
    return month < 0 || month > text.indexOf(QLatin1StringView{"15"});
}

} // namespace

LocaleDateFormat LocaleDateFormat::of(const QLocale &locale)
{
    return {.isUSOrUK = standsDayFirst(locale),
            .is24Hour = !locale.timeFormat(QLocale::ShortFormat).contains(u'a', Qt::CaseInsensitive),
            .languageCode = QLocale::languageToCode(locale.language()).toStdWString()};
}

const LocaleDateFormat &LocaleDateFormat::current()
{
    struct Known {
        QLocale locale;
        LocaleDateFormat format = LocaleDateFormat::of(locale);
    };
    static std::optional<Known> known;
    const QLocale locale;
    if (!known || known->locale != locale) known.emplace(Known{locale});
    return known->format;
}
