#include "views/print/ListPrint.h"

#include "views/tasklist/TaskDateText.h"

#include <QLocale>
#include <QPrintDialog>
#include <QPrinter>
#include <QTextCursor>
#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace {

constexpr int printedTitleSize = 16;
constexpr int printedTextSize = 10;
constexpr double printedLineSpace = 4;

} // namespace

std::unique_ptr<QTextDocument>
ListPrint::document(const QString &title, const QList<KWTaskListItemModel> &rows, const CXClock &clock)
{
    auto document = std::make_unique<QTextDocument>();
    QTextCursor cursor{document.get()};
    QTextCharFormat heading;
    heading.setFontPointSize(printedTitleSize);
    heading.setFontWeight(QFont::DemiBold);
    cursor.insertText(title, heading);

    QTextBlockFormat line;
    line.setTopMargin(printedLineSpace);
    QTextCharFormat text;
    text.setFontPointSize(printedTextSize);
    for (const KWTaskListItemModel &row : rows) {
        cursor.insertBlock(line, text);
        cursor.insertText((row.isClosed() ? u"☑ "_s : u"☐ "_s) + row.title, text);
        const QString date = dateText(row, clock.now(), clock.zone(), QLocale{}).text;
        if (!date.isEmpty()) cursor.insertText(u"  ·  "_s + date, text);
    }
    return document;
}

void ListPrint::run(const QTextDocument &document, const QString &title, QWidget &window)
{
    QPrinter printer{QPrinter::HighResolution};
    printer.setDocName(title);
    QPrintDialog dialog{&printer, &window};
    dialog.setObjectName(u"printDialog"_s);
    if (dialog.exec() == QDialog::Accepted) document.print(&printer);
}
