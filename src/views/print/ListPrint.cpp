#include "views/print/ListPrint.h"

#include "views/print/PrintedSections.h"
#include "views/tasklist/TaskListModel.h"

#include <QPrintDialog>
#include <QPrinter>
#include <QTextCursor>
#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace {

constexpr int printedTitleSize = 16;
constexpr int printedSectionSize = 12;
constexpr int printedTextSize = 10;
constexpr double printedLineSpace = 4;
constexpr double printedSectionSpace = 12;
constexpr double printedIndent = 14;

QTextCharFormat headingOf(int size)
{
    QTextCharFormat heading;
    heading.setFontPointSize(size);
    heading.setFontWeight(QFont::DemiBold);
    return heading;
}

QString boxOf(const KWTaskListItemModel &task)
{
    if (task.taskKind == KWTaskKindNote || task.isEvent()) return u"– "_s;
    switch (task.status) {
    case KWTaskStatusCompleted:
        return u"☑ "_s;
    case KWTaskStatusAbandoned:
        return u"☒ "_s;
    case KWTaskStatusOpen:
        break;
    }
    return u"☐ "_s;
}

void insertTask(const TaskListRow &row, const TaskListModel &list, QTextCursor &cursor)
{
    QTextBlockFormat line;
    line.setTopMargin(printedLineSpace);
    line.setLeftMargin(row.depth * printedIndent);
    QTextCharFormat text;
    text.setFontPointSize(printedTextSize);
    cursor.insertBlock(line, text);
    cursor.insertText(boxOf(row.task) + printedName(row.task), text);
    if (const QString date = list.dateTextOf(row).text; !date.isEmpty())
        cursor.insertText(u"  ·  "_s + date, text);
}

void insertSection(const QString &title, QTextCursor &cursor)
{
    QTextBlockFormat line;
    line.setTopMargin(printedSectionSpace);
    cursor.insertBlock(line, headingOf(printedSectionSize));
    cursor.insertText(title);
}

} // namespace

std::unique_ptr<QTextDocument> ListPrint::document(const QString &title, const TaskListModel &list)
{
    auto document = std::make_unique<QTextDocument>();
    QTextCursor cursor{document.get()};
    cursor.insertText(title, headingOf(printedTitleSize));
    const QSet<QString> collapsed = collapsedSectionNames(list);
    for (const TaskListRow &row : list.rows())
        if (row.kind == TaskListRow::Kind::Section)
            insertSection(printedTitle(row, collapsed), cursor);
        else if (row.kind == TaskListRow::Kind::Task)
            insertTask(row, list, cursor);
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
