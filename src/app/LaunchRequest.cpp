#include "app/LaunchRequest.h"

#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

QString nameOf(LaunchCause cause)
{
    switch (cause) {
    case LaunchCause::Person:
        return u"person"_s;
    case LaunchCause::LoginItem:
        return u"login item"_s;
    case LaunchCause::Diagnostics:
        return u"diagnostics"_s;
    case LaunchCause::AddTask:
        return u"add task"_s;
    }
    return {};
}

} // namespace

QString LaunchRequest::userInfo() const
{
    QStringList facts{u"cause = "_s + nameOf(cause)};
    for (const QString &link : links)
        facts << u"link = "_s + QUrl{link}.toString(QUrl::RemoveQuery | QUrl::RemoveFragment |
                                                    QUrl::RemoveUserInfo | QUrl::FullyEncoded);
    return facts.join(u"; "_s);
}
