#pragma once

#include <QSyntaxHighlighter>

/// Shows Markdown in a plain text while it is edited: headings, lists, quotes, code, emphasis, links. The
/// marks stay where they are, quiet. The text itself is never changed.
class MarkdownHighlighter : public QSyntaxHighlighter {
    Q_OBJECT

public:
    explicit MarkdownHighlighter(QTextDocument *document);

    /// The address of the link at that place of a line: of "[text](address)", or of one that stands for
    /// itself. Empty where there is none.
    static QString linkAt(const QString &line, qsizetype place);

protected:
    void highlightBlock(const QString &line) override;

private:
    bool highlightFence(const QString &line);
    void highlightLineStart(const QString &line);
    void highlightSpans(const QString &line);
    void merge(qsizetype start, qsizetype length, const QTextCharFormat &format);
};
