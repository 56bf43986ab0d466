#pragma once

#include "corvexkit/time/CXClock.h"

#include <QStringList>
#include <QTextEdit>

/// A plain-text editor as high as its text, for a field of a record. What is typed is handed over one
/// second after the last key, when the focus goes, when the editor is hidden, and by commit(): no typed
/// text is lost. A value from outside is joined with text that is not handed over yet.
class CommittingTextEdit : public QTextEdit {
    Q_OBJECT

public:
    enum class Lines {
        One,  ///< Enter commits; pasted line breaks become spaces; emptied, it waits for more to be typed
        Many, ///< Enter breaks the line
    };

    CommittingTextEdit(CXClock &clock, Lines lines, QWidget *parent = nullptr);

    /// The text as it stands in the editor, character for character, lines parted by line feeds.
    QString text() const;

    /// The record has this value now. Ignored when it had it before, and for a value that was handed over
    /// from here while the editor has the focus: that is an echo, in an editor of one line without the
    /// white space around it. Otherwise only the part that differs is replaced, and the caret stays where
    /// it was. Typed text that is not handed over yet stays too, see mergedText(). What was typed before
    /// cannot be undone any more.
    void setStoredText(const QString &text);
    /// Another record: replaces the text, forgets undo. Call commit() before.
    void startWith(const QString &text);

    /// Hands over what is not handed over yet, at once.
    void commit();
    /// What was handed over last, or given from outside since.
    const QString &committedText() const { return m_committedText; }
    bool hasUncommittedText() const { return text() != m_committedText; }
    /// What was handed over last could not be stored: it counts as typed, and is handed over once more.
    void takeBackCommitted();
    /// The text as if it had been typed.
    void retype(const QString &text);
    /// The record is gone: what stands here is to be handed over as new text.
    void forgetCommittedText();

    /// Draws the text struck through, for a closed task or item.
    void setStruckOut(bool isStruckOut);
    void setTextColor(const QColor &color);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {40, sizeHint().height()}; }

Q_SIGNALS:
    /// The text to save; only when it differs from the last one.
    void committed(const QString &text);
    /// The focus has gone, for more than a menu of the editor; committed() came before.
    void editingFinished();
    /// Enter, in an editor of one line; committed() came before.
    void entered();
    /// Backspace with nothing to delete.
    void backspacedAtStart();
    /// Up in the first line, down in the last one.
    void leftUpwards();
    void leftDownwards();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    bool canInsertFromMimeData(const QMimeData *source) const override;
    void insertFromMimeData(const QMimeData *source) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void textTyped();
    bool isEmptiedLine() const;
    void fitHeight();
    void replaceDifference(const QString &text);

    CXClock &m_clock;
    const Lines m_lines;
    QString m_committedText;
    QString m_storedText; // what the record has, as far as this was told
    QStringList m_echoes; // handed over since the focus came, as records keep them
    ClockCall m_commitCall;
};
