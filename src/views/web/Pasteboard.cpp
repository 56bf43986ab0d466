#include "views/web/Pasteboard.h"

#include "integration/summary/SummaryDocument.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QTextDocument>

void Pasteboard::setPlainText(const QString &text) { QGuiApplication::clipboard()->setText(text); }

void Pasteboard::setHtml(const QString &html)
{
    QTextDocument styled;
    styled.setHtml(html);
    auto *data = new QMimeData;
    data->setHtml(SummaryDocument::htmlWithTaskSigns(styled));
    data->setText(styled.toPlainText());
    QGuiApplication::clipboard()->setMimeData(data);
}
