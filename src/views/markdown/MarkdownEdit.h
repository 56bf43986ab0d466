#pragma once

#include "views/controls/CommittingTextEdit.h"

class MarkdownHighlighter;

/// A text of many lines in which Markdown is shown. Ctrl+B and Ctrl+I put the marks for bold and italic
/// around what is selected and take them away again; Ctrl+click opens a link.
class MarkdownEdit : public CommittingTextEdit {
    Q_OBJECT

public:
    explicit MarkdownEdit(CXClock &clock, QWidget *parent = nullptr);

    /// Colours and sizes are other ones now.
    void dress();

Q_SIGNALS:
    void linkOpened(const QString &address);

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void toggleMark(const QString &mark);
    QString linkAt(const QPoint &position) const;

    MarkdownHighlighter *m_highlighter;
    QString m_pressedLink;
};
