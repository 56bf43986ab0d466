#pragma once

#include <QFrame>

class QAbstractItemView;

/// A small rounded frame that stands over other windows. As a popup, which it is if nothing else is said, it
/// goes by Escape and by a click beside it, and is deleted then.
class PopupFrame : public QFrame {
    Q_OBJECT

public:
    explicit PopupFrame(QWidget *parent, Qt::WindowFlags kind = Qt::Popup);

    /// `wanted` moved, and cut where that is not enough, so that all of it is within `bounds`.
    static QRect within(const QRect &bounds, const QRect &wanted);

protected:
    /// Puts its corner there, or as near as the screen allows: it is always whole on the screen.
    void place(const QPoint &position, const QSize &size);
    /// As high as the rows of the view, but no higher than `most`.
    static int heightOfRows(const QAbstractItemView &view, int most);

    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
};
