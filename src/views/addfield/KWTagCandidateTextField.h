#pragma once

#include "capture/RecognizedPiece.h"
#include "model/text/TextRange.h"

#include <QList>
#include <QTextEdit>

#include <functional>
#include <optional>
#include <span>

/// One line of text in which recognised pieces are shown as soft pills behind the words. Each carries its
/// recognitionLink(). What is typed is undone word by word.
class KWTagCandidateTextField : public QTextEdit {
    Q_OBJECT

public:
    explicit KWTagCandidateTextField(QWidget *parent = nullptr);

    /// What was typed, character for character.
    QString text() const;
    /// Replaces the text and forgets what undo knew. Line breaks become spaces.
    void setText(const QString &text);
    /// Puts `with` in the place of a range of the text and the caret behind it, as one step of undo.
    void replace(TextRange range, const QString &with);
    /// Cuts these ranges out, which stand in order and apart. One step of undo takes it back together with
    /// the change before it.
    void remove(const QList<TextRange> &ranges);

    /// Marks these pieces of the current text; those that reach beyond it are left out. A change of the
    /// text moves the marks behind it along and drops those it touches, until the next call.
    void setPieces(QList<RecognizedPiece> pieces);
    const QList<RecognizedPiece> &pieces() const { return m_pieces; }
    /// Asked for what the tool tip of a mark says.
    std::function<QString(const RecognizedPiece &)> explainPiece;
    /// Where a piece stands on the screen.
    QRect globalBoundsOf(const RecognizedPiece &piece) const;

Q_SIGNALS:
    /// The text became another one, by typing, pasting, undo or a call.
    void textEdited(const QString &text);
    /// A mark was clicked that carries this link.
    void linkClicked(const QString &link);

protected:
    static constexpr int documentMargin = 4; ///< room for a pill at either end of the text

    virtual void dress();
    void insertAsOneStep(const QString &text);

    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    bool viewportEvent(QEvent *event) override;

private:
    void moveMarks(int position, int removed, int added);
    void announceText();
    void showPieceColors();
    /// Those that may be seen: a very long text can have thousands, and Qt draws each of them.
    std::span<const RecognizedPiece> piecesInView() const;
    QRectF pieceBounds(const RecognizedPiece &piece) const;
    QRectF boundsBetween(int begin, int end) const;
    std::optional<RecognizedPiece> pieceAt(const QPoint &position) const;
    /// Empty where no mark with a link stands.
    QString linkAt(const QPoint &position) const;

    QList<RecognizedPiece> m_pieces;
    QString m_announcedText;
    QString m_pressedLink;
    QPoint m_pressPosition;
};
