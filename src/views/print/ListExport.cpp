#include "views/print/ListExport.h"

#include "model/settings/KWLocalizedString.h"
#include "views/print/ListMarkdown.h"
#include "views/print/ListPrint.h"

#include <QDir>
#include <QFileDialog>
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
    QString kind;
    QString file = QFileDialog::getSaveFileName(&window, KWLocalizedString("Export List"),
                                                QDir::home().filePath(fileNameOf(title) + pdfSuffix),
                                                KWLocalizedString("PDF (*.pdf)") + u";;"_s + markdown, &kind);
    if (file.isEmpty()) return file;
    // The chosen kind decides where the name that was proposed still ends as before.
    if (kind == markdown && !isMarkdown(file)) {
        if (file.endsWith(pdfSuffix)) file.chop(pdfSuffix.size());
        file += markdownSuffix;
    }
    if (const Result<void> written = write(file, title, list); !written) return written.error();
    return file;
}
