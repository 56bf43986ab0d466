#include "app/OrvaneLink.h"

#include "app/LaunchRequest.h"

#include <QUrl>

std::optional<OrvaneLink> OrvaneLink::parse(const QString &link)
{
    if (!LaunchRequest::isLink(link)) return std::nullopt;
    const QUrl url{link, QUrl::StrictMode};
    const QString path = url.path(QUrl::FullyDecoded);
    const QString id = path.mid(1);
    if (!url.isValid() || !path.startsWith(u'/') || id.isEmpty() || id.contains(u'/')) return std::nullopt;

    // Hosts are read in lower case.
    const QString host = url.host();
    if (host == u"task") return OrvaneLink{Kind::Task, id};
    if (host == u"list") return OrvaneLink{Kind::List, id};
    if (host == u"habit") return OrvaneLink{Kind::Habit, id};
    if (host == u"event") return OrvaneLink{Kind::Event, id};
    return std::nullopt;
}
