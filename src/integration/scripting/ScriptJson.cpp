#include "integration/scripting/ScriptJson.h"

#include <QLocale>

namespace {

void appendText(QString &json, const QString &text)
{
    json += u'"';
    for (const QChar unit : text) {
        if (unit == u'"' || unit == u'\\')
            json += u'\\', json += unit;
        else if (unit.unicode() >= 0x20)
            json += unit;
        else
            json += QStringLiteral("\\u%1").arg(unit.unicode(), 4, 16, QLatin1Char{'0'});
    }
    json += u'"';
}

void appendNumber(QString &json, const QJsonValue &value)
{
    // Another answer for another fallback: no whole number.
    const qint64 number = value.toInteger(0);
    if (number == value.toInteger(1))
        json += QString::number(number);
    else
        json += QString::number(value.toDouble(), 'g', QLocale::FloatingPointShortest);
}

} // namespace

void appendJson(QString &json, const QJsonValue &value)
{
    if (value.isString()) return appendText(json, value.toString());
    if (value.isDouble()) return appendNumber(json, value);
    if (value.isBool()) {
        json += value.toBool() ? QLatin1StringView{"true"} : QLatin1StringView{"false"};
    } else if (value.isArray()) {
        json += u'[';
        const QJsonArray array = value.toArray();
        for (qsizetype i = 0; i < array.size(); ++i) {
            if (i > 0) json += u',';
            appendJson(json, array.at(i));
        }
        json += u']';
    } else {
        json += QLatin1StringView{"null"};
    }
}
