#include "platform/XdgMail.h"

#include "corvexkit/log/CXLog.h"

#include <QProcess>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {
constexpr CXLogger mailLog{u"desktop"};
constexpr qsizetype longestArgument = 120'000; // bytes; the system takes 128 KiB

QString encoded(const QString &text) { return QString::fromLatin1(QUrl::toPercentEncoding(text)); }

bool openLink(const QString &link)
{
    if (link.size() <= longestArgument && QProcess::startDetached(u"xdg-open"_s, {link})) return true;
    mailLog.warning(u"There is no mail program to open."_s);
    return false;
}

} // namespace

void XdgMail::compose(const QString &subject, const QString &attachment)
{
    const QStringList arguments{u"--utf8"_s, u"--subject"_s, subject, u"--attach"_s, attachment};
    if (QProcess::startDetached(u"xdg-email"_s, arguments)) return;
    openLink(u"mailto:?subject="_s + encoded(subject));
}

bool XdgMail::composeText(const QString &subject, const QString &text)
{
    const QStringList arguments{u"--utf8"_s, u"--subject"_s, subject, u"--body"_s, text};
    const bool isShort = text.toUtf8().size() <= longestArgument && subject.size() <= longestArgument / 4;
    if (isShort && QProcess::startDetached(u"xdg-email"_s, arguments)) return true;
    return openLink(u"mailto:?subject=%1&body=%2"_s.arg(encoded(subject), encoded(text)));
}
