#include "platform/XdgMail.h"

#include "corvexkit/log/CXLog.h"

#include <QProcess>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {
constexpr CXLogger mailLog{u"desktop"};
}

void XdgMail::compose(const QString &subject, const QString &attachment)
{
    const QStringList arguments{u"--utf8"_s, u"--subject"_s, subject, u"--attach"_s, attachment};
    if (QProcess::startDetached(u"xdg-email"_s, arguments)) return;
    const QString link = u"mailto:?subject="_s + QString::fromLatin1(QUrl::toPercentEncoding(subject));
    if (!QProcess::startDetached(u"xdg-open"_s, {link}))
        mailLog.warning(u"There is no mail program to open."_s);
}
