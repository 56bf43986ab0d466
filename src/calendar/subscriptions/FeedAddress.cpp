#include "calendar/subscriptions/FeedAddress.h"

#include "model/settings/KWLocalizedString.h"

#include <QDir>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

Result<QUrl> feedAddress(const QString &typed)
{
    QString text = typed.trimmed();
    if (text.isEmpty()) return Error{KWLocalizedString("A calendar needs an address.")};
    if (text.startsWith(u"~/"_s)) text.replace(0, 1, QDir::homePath());
    if (text.startsWith(u'/')) return QUrl::fromLocalFile(QDir::cleanPath(text));
    static const QRegularExpression scheme{u"^[A-Za-z][A-Za-z0-9+.-]*:(?!\\d)"_s}; // not the port of a host
    if (!scheme.match(text).hasMatch()) text.prepend(u"https://"_s);
    QUrl url{text, QUrl::StrictMode};
    if (url.scheme() == u"webcal" || url.scheme() == u"webcals") url.setScheme(u"https"_s);
    url.setFragment({});
    const bool isFile = url.isLocalFile() && url.host().isEmpty() && !url.path().isEmpty();
    const bool isRemote = (url.scheme() == u"https" || url.scheme() == u"http") && !url.host().isEmpty();
    if (url.isValid() && (isFile || isRemote)) return url;
    return Error{KWLocalizedString("“%1” is no address of a calendar.").arg(typed.trimmed())};
}
