#include "app/OrvaneLink.h"

#include "app/LaunchRequest.h"

#include <QUrl>

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

using Kind = OrvaneLink::Kind;

// Hosts are read in lower case.
const std::array hosts{std::pair{Kind::Task, u"task"_s}, std::pair{Kind::List, u"list"_s},
                       std::pair{Kind::Habit, u"habit"_s}, std::pair{Kind::Event, u"event"_s}};

} // namespace

std::optional<OrvaneLink> OrvaneLink::parse(const QString &link)
{
    if (!LaunchRequest::isLink(link)) return std::nullopt;
    const QUrl url{link, QUrl::StrictMode};
    const QString path = url.path(QUrl::FullyDecoded);
    const QString id = path.mid(1);
    if (!url.isValid() || !path.startsWith(u'/') || id.isEmpty() || id.contains(u'/')) return std::nullopt;

    for (const auto &[kind, host] : hosts)
        if (host == url.host()) return OrvaneLink{kind, id};
    return std::nullopt;
}

QString OrvaneLink::text() const
{
    QUrl url;
    url.setScheme(u"orvane"_s);
    for (const auto &[each, host] : hosts)
        if (each == kind) url.setHost(host);
    url.setPath(u'/' + id);
    return url.toString(QUrl::FullyEncoded);
}
