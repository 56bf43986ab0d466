#include "app/LaunchRequest.h"

#include <QUrl>

using namespace Qt::StringLiterals;

QString LaunchRequest::userInfo() const
{
    QStringList facts{cause == LaunchCause::LoginItem ? u"cause = login item"_s : u"cause = person"_s};
    for (const QString &link : links)
        facts << u"link = "_s +
                     QUrl{link}.toString(QUrl::RemoveQuery | QUrl::RemoveFragment | QUrl::RemoveUserInfo);
    return facts.join(u"; "_s);
}
