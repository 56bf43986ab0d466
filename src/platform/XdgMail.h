#pragma once

#include "app/ports/DiagnosticsPorts.h"

/// The mail program of the desktop, by xdg-email(1); where that is missing, a "mailto:" link (RFC 6068),
/// which carries no attachment.
class XdgMail final : public MailPort {
public:
    void compose(const QString &subject, const QString &attachment) override;
    /// A text that is too long for a command line is put into no mail.
    bool composeText(const QString &subject, const QString &text) override;
};
