#include "views/print/ListExport.h"

#include "model/settings/KWLocalizedString.h"
#include "views/print/ListMarkdown.h"
#include "views/print/ListPrint.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QSaveFile>
#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace {

constexpr auto pdfSuffix = ".pdf"_L1;
constexpr auto markdownSuffix = ".md"_L1;

bool isMarkdown(const QString &file) { return file.endsWith(markdownSuffix, Qt::CaseInsensitive); }

void writePdf(QIODevice &device, const QString &title, const TaskListModel &list)
{
    QPdfWriter writer{&device};
    writer.setTitle(title);
    ListPrint::document(title, list)->print(&writer);
}

// A name that every file system takes.
QString fileNameOf(const QString &title)
{
    static const QRegularExpression notForNames{u"[\\x00-\\x1f/\\\\:*?\"<>|]+"_s};
    QString name = title;
    name = name.replace(notForNames, u" "_s).simplified();
    return name.isEmpty() ? u"list"_s : name;
}

QString withoutSuffix(QString name)
{
    for (const QLatin1StringView each : {pdfSuffix, markdownSuffix})
        if (name.endsWith(each, Qt::CaseInsensitive)) name.chop(each.size());
    return name;
}

} // namespace

Result<void> ListExport::write(const QString &file, const QString &title, const TaskListModel &list)
{
    QSaveFile target{file};
    if (target.open(QIODevice::WriteOnly)) {
        if (isMarkdown(file))
            target.write(listMarkdown(title, list).toUtf8());
        else
            writePdf(target, title, list);
        if (target.commit()) return {};
    }
    return Error{KWLocalizedString("“%1” could not be written: %2")
                     .arg(QDir::toNativeSeparators(file), target.errorString())};
}

Result<QString> ListExport::run(const QString &title, const TaskListModel &list, QWidget &window)
{
    const QString markdown = KWLocalizedString("Markdown (*.md)");
    QFileDialog dialog{&window, KWLocalizedString("Export List"), QDir::homePath(),
                       KWLocalizedString("PDF (*.pdf)") + u";;"_s + markdown};
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    // The ending is part of the name before the dialog asks about a file that is there already.
    const auto propose = [&](const QString &kind) {
        const QLatin1StringView suffix = kind == markdown ? markdownSuffix : pdfSuffix;
        const QString name = QFileInfo{dialog.selectedFiles().value(0)}.fileName();
        dialog.setDefaultSuffix(suffix.sliced(1));
        dialog.selectFile(withoutSuffix(name.isEmpty() ? fileNameOf(title) : name) + suffix);
    };
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, propose);
    dialog.selectFile(fileNameOf(title));
    propose({});
    if (dialog.exec() != QDialog::Accepted) return QString{};
    const QString file = dialog.selectedFiles().constFirst();
    if (const Result<void> written = write(file, title, list); !written) return written.error();
    return file;
}
