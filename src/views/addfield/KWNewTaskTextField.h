#pragma once

#include "capture/RecognizedPiece.h"

#include <QList>
#include <QTextEdit>

#include <optional>

/// The one-line field in which a task is typed. Recognised pieces are shown as soft pills behind the
/// text; a click on one asks to undo the recognition. Enter submits, Escape gives the focus away.
class KWNewTaskTextField : public QTextEdit {
    Q_OBJECT

public:
    /// How far the ring of the focused field stands out of its outline, on every side of the widget.
    static constexpr int ring = 3;

    explicit KWNewTaskTextField(QWidget *parent = nullptr);

    /// What was typed, character for character.
    QString text() const;
    /// Replaces the text and forgets what undo knew. Line breaks become spaces.
    void setText(const QString &text);

    /// Marks these pieces of the current text; those that reach beyond it are left out. A change of the
    /// text moves the marks behind it along and drops those it touches, until the next call.
    void setPieces(QList<RecognizedPiece> pieces);
    const QList<RecognizedPiece> &pieces() const { return m_pieces; }

    void setPlaceholder(const QString &placeholder);
    /// Shown instead for a while; empty: the other one again.
    void setPassingPlaceholder(const QString &placeholder);
    const QString &placeholder() const
    {
        return m_passingPlaceholder.isEmpty() ? m_placeholder : m_passingPlaceholder;
    }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The text became another one, by typing, pasting, undo or a call.
    void textEdited(const QString &text);
    /// Enter. The text stays until whoever saved it clears it.
    void submitted(const QString &text);
    void pieceClicked(const RecognizedPiece &piece);
    /// Escape: the person is done here.
    void left();
    /// Down: on to what stands below.
    void steppedDown();

protected:
    bool event(QEvent *event) override;
    bool canInsertFromMimeData(const QMimeData *source) const override;
    void insertFromMimeData(const QMimeData *source) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void dress();
    void moveMarks(int position, int removed, int added);
    void announceText();
    void showPieceColors();
    /// Adds the text, its line breaks as spaces, behind what is there.
    void appendLines(const QString &lines);
    QRectF pieceBounds(const RecognizedPiece &piece) const;
    std::optional<RecognizedPiece> pieceAt(const QPoint &position) const;
    void paintFrame();
    void showPlaceholder();
    void paintPlaceholder(QPainter &painter) const;
    void placeViewport();

    QList<RecognizedPiece> m_pieces;
    QString m_announcedText;
    QString m_placeholder;
    QString m_passingPlaceholder;
    std::optional<RecognizedPiece> m_pressedPiece;
    QPoint m_pressPosition;
};
