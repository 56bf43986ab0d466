#include "views/web/SummaryExport.h"

#include "app/ports/DiagnosticsPorts.h"
#include "model/settings/KWLocalizedString.h"
#include "views/web/WebPane.h"

#include <QDir>
#include <QFileDialog>
#include <QPointer>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace {

constexpr int pictureWidth = 800; // pixels
constexpr auto betweenMails = std::chrono::seconds{2};

} // namespace

void SummaryExport::exportPdf()
{
    if (m_isBusy || !m_pane.page()) return;
    m_isBusy = true;
    m_pane.page()->printToPdf([self = QPointer{this}](const QByteArray &pdf) {
        if (!self) return;
        self->m_isBusy = false;
        if (pdf.isEmpty()) return Q_EMIT self->told(KWLocalizedString("The summary could not be printed."));
        self->askWhere(KWLocalizedString("Summary") + u".pdf"_s, KWLocalizedString("PDF (*.pdf)"),
                       [pdf](QIODevice &file) { return file.write(pdf) == pdf.size(); });
    });
}

QString SummaryExport::exportPNG()
{
    const QString name = KWLocalizedString("Summary") + u".png"_s;
    if (m_isBusy || !m_pane.page()) return {};
    m_isBusy = true;
    m_pane.page()->drawPicture(pictureWidth, [self = QPointer{this}, name](const QImage &picture) {
        if (!self) return;
        self->m_isBusy = false;
        if (picture.isNull())
            return Q_EMIT self->told(
                KWLocalizedString("The picture could not be drawn; a PDF holds a summary of any length."));
        self->askWhere(name, KWLocalizedString("Picture (*.png)"),
                       [picture](QIODevice &file) { return picture.save(&file, "PNG"); });
    });
    return name;
}

QString SummaryExport::exportMail(const QString &title, const QString &summary)
{
    // A mail program takes its time; nobody asks for a second mail before it is there.
    if (m_lastMail && m_clock.now() < *m_lastMail + betweenMails)
        return KWLocalizedString("A mail is being opened.");
    if (m_mail.composeText(title, summary)) {
        m_lastMail = m_clock.now();
        return {};
    }
    const QString sentence = KWLocalizedString("No mail program could be opened for this summary.");
    Q_EMIT told(sentence);
    return sentence;
}

void SummaryExport::askWhere(const QString &name, const QString &kind, std::function<bool(QIODevice &)> write)
{
    m_isBusy = true;
    auto *dialog = new QFileDialog{&m_pane, KWLocalizedString("Export Summary"), QDir::homePath(), kind};
    dialog->setObjectName(u"exportSummary"_s);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(name.section(u'.', -1));
    dialog->selectFile(name);
    connect(dialog, &QDialog::finished, this, [this] { m_isBusy = false; });
    connect(dialog, &QFileDialog::fileSelected, this, [this, write = std::move(write)](const QString &file) {
        QSaveFile target{file};
        const bool isWritten = target.open(QIODevice::WriteOnly) && write(target) && target.commit();
        const QString shown = QDir::toNativeSeparators(file);
        Q_EMIT told(
            isWritten ? KWLocalizedString("The summary is in “%1”.").arg(shown)
                      : KWLocalizedString("“%1” could not be written: %2").arg(shown, target.errorString()));
    });
    dialog->open();
}
