#include "support/JsonSchema.h"

#include "support/Files.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

QJsonObject schemaNamed(const QString &file)
{
    const QByteArray bytes = bytesOf(QStringLiteral(ORVANE_TEST_DATA "/../../docs/schemas/") + file);
    const QJsonObject schema = QJsonDocument::fromJson(bytes).object();
    if (schema.isEmpty()) qFatal("docs/schemas/%s cannot be read", qUtf8Printable(file));
    static const QStringList known{u"$schema"_s, u"$ref"_s,       u"title"_s, u"type"_s,
                                   u"enum"_s,    u"properties"_s, u"items"_s, u"required"_s};
    for (const QString &each : schema.keys())
        if (!known.contains(each))
            qFatal("%s: unknown keyword %s", qUtf8Printable(file), qUtf8Printable(each));
    return schema;
}

bool isOfType(const QJsonValue &value, const QString &type)
{
    if (type == u"string") return value.isString();
    if (type == u"boolean") return value.isBool();
    if (type == u"null") return value.isNull();
    if (type == u"object") return value.isObject();
    if (type == u"array") return value.isArray();
    if (type == u"integer") return value.isDouble() && value.toInteger(1) == value.toInteger(2);
    qFatal("unknown type %s", qUtf8Printable(type));
}

bool isOfOneType(const QJsonValue &value, const QJsonValue &types)
{
    if (types.isString()) return isOfType(value, types.toString());
    for (const QJsonValue &each : types.toArray())
        if (isOfType(value, each.toString())) return true;
    return false;
}

QString misfit(const QJsonValue &value, const QJsonObject &schema, const QString &where);

QString misfitOfObject(const QJsonObject &object, const QJsonObject &schema, const QString &where)
{
    const QJsonObject properties = schema[u"properties"_s].toObject();
    for (const QJsonValue &each : schema[u"required"_s].toArray())
        if (!object.contains(each.toString())) return where + u" lacks "_s + each.toString();
    for (auto each = object.begin(); each != object.end(); ++each) {
        const QString place = where + u'.' + each.key();
        if (!properties.contains(each.key())) return place + u" is unknown"_s;
        const QString wrong = misfit(each.value(), properties[each.key()].toObject(), place);
        if (!wrong.isEmpty()) return wrong;
    }
    return {};
}

QString misfit(const QJsonValue &value, const QJsonObject &schema, const QString &where)
{
    if (schema.contains(u"$ref"_s)) return misfit(value, schemaNamed(schema[u"$ref"_s].toString()), where);
    if (schema.contains(u"type"_s) && !isOfOneType(value, schema[u"type"_s]))
        return where + u" has another type"_s;
    if (schema.contains(u"enum"_s) && !schema[u"enum"_s].toArray().contains(value))
        return where + u" has another value"_s;
    if (value.isObject()) return misfitOfObject(value.toObject(), schema, where);
    const QJsonArray array = value.toArray();
    for (qsizetype i = 0; i < array.size(); ++i) {
        const QString wrong = misfit(array[i], schema[u"items"_s].toObject(), where + u"[%1]"_s.arg(i));
        if (!wrong.isEmpty()) return wrong;
    }
    return {};
}

} // namespace

QString misfitOf(const QString &json, const QString &schemaName)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json.toUtf8(), &error);
    if (error.error != QJsonParseError::NoError) return error.errorString();
    const QJsonValue root = document.isArray() ? QJsonValue{document.array()} : QJsonValue{document.object()};
    return misfit(root, schemaNamed(schemaName + u".json"_s), u"$"_s);
}
