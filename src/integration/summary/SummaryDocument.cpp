#include "integration/summary/SummaryDocument.h"

#include "model/settings/KWLocalizedString.h"

#include <QPdfWriter>
#include <QRegularExpression>
#include <QSaveFile>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace {

constexpr auto dialect =
    QTextDocument::MarkdownFeatures{QTextDocument::MarkdownDialectGitHub} | QTextDocument::MarkdownNoHTML;

constexpr int paperPoints = 10;
constexpr int headingSpace = 14; // pixels above

// Where `mark` ends; the text's end when it is not there.
qsizetype endOf(const QString &text, QStringView mark, qsizetype from = 0)
{
    const qsizetype at = text.indexOf(mark, from);
    return at < 0 ? text.size() : at + mark.size();
}

// Smaller than in a browser, with room above.
void dressHeadings(QTextDocument &document)
{
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        QTextBlockFormat format = block.blockFormat();
        if (format.headingLevel() == 0) continue;
        QTextCharFormat letters;
        letters.setProperty(QTextFormat::FontSizeAdjustment, format.headingLevel() == 1 ? 2 : 1);
        QTextCursor cursor{block};
        cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
        cursor.mergeCharFormat(letters);
        if (format.headingLevel() > 1) format.setTopMargin(headingSpace);
        cursor.setBlockFormat(format);
    }
}

QString bodyOf(const QString &page)
{
    const qsizetype begin = endOf(page, u">", endOf(page, u"<body"));
    const qsizetype end = page.lastIndexOf(u"</body>");
    return end < begin ? QString{} : page.sliced(begin, end - begin).trimmed();
}

} // namespace

QString SummaryDocument::htmlOfMarkdown(const QString &markdown)
{
    QTextDocument document;
    document.setMarkdown(markdown, dialect);
    return bodyOf(document.toHtml());
}

QString SummaryDocument::htmlWithTaskSigns(QTextDocument &document)
{
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const auto marker = block.blockFormat().marker();
        if (marker == QTextBlockFormat::MarkerType::NoMarker) continue;
        const bool isChecked = marker == QTextBlockFormat::MarkerType::Checked;
        QTextCursor{block}.insertText(isChecked ? u"☑ "_s : u"☐ "_s, QTextCharFormat{});
    }
    // The sign stands in the place of a bullet.
    static const QRegularExpression item{u"(<li class=\"(?:un)?checked\" style=\")"_s};
    return document.toHtml().replace(item, u"\\1list-style-type:none;"_s);
}

QString SummaryDocument::htmlPage(const QString &title, const QString &markdown)
{
    QTextDocument document;
    document.setMarkdown(markdown, dialect);
    return u"<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n<title>%1</title>\n</head>\n"
           "<body>\n%2\n</body>\n</html>\n"_s.arg(title.toHtmlEscaped(), bodyOf(htmlWithTaskSigns(document)));
}

Result<void> SummaryDocument::writePdf(const QString &title, const QString &markdown, const QString &file)
{
    QTextDocument document;
    document.setDefaultFont({u"Inter"_s, paperPoints});
    document.setMarkdown(markdown, dialect);
    dressHeadings(document);
    QSaveFile output{file};
    if (output.open(QIODevice::WriteOnly)) {
        QPdfWriter writer{&output};
        writer.setTitle(title);
        writer.setCreator(u"Orvane"_s);
        writer.setPageSize(QPageSize{QPageSize::A4});
        writer.setPageMargins({}); // the document brings its own
        document.print(&writer);
    }
    if (output.isOpen() && output.commit()) return {};
    return Error{
        KWLocalizedString("The summary could not be written into “%1”: %2.").arg(file, output.errorString())};
}
