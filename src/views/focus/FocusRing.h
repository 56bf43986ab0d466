#pragma once

#include "views/focus/FocusFace.h"
#include "views/theme/Fonts.h"

#include <QWidget>

/// The clock of a session: a ring that runs from the top clockwise, the time inside and a line below it. A
/// second that goes by repaints the digits alone, and the end of the ring once that came a pixel further.
class FocusRing : public QWidget {
    Q_OBJECT

public:
    enum class Size { Large, Small };
    explicit FocusRing(Size size, QWidget *parent = nullptr);

    void setReading(const FocusReading &reading);
    void setFace(FocusFace::Phase phase, const QString &words);
    const FocusReading &reading() const { return m_reading; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString widestTime() const;
    Fonts::Role digits() const;
    bool digitsTouchRing() const;
    int side() const;
    int stroke() const;
    QRectF ring() const;
    QRect digitsBounds() const;
    QRect wordsBounds() const;
    /// That of the reading in whole pixels of the ring.
    double shareOfRing(const FocusReading &reading) const;
    QRect endOfRing(double share) const;
    QColor color() const;
    void paintRing(QPainter &painter) const;
    void paintRingNear(QPainter &painter) const;
    void describe();

    const Size m_size;
    FocusReading m_reading;
    FocusFace::Phase m_phase = FocusFace::Phase::Idle;
    QString m_words;
    QRect m_changedEnd; // of the ring, not painted yet
};
