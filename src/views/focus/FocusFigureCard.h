#pragma once

#include <QFrame>

class QLabel;

/// A number of the day in a quiet box, with what it counts below it.
class FocusFigureCard : public QFrame {
    Q_OBJECT

public:
    explicit FocusFigureCard(const char *name, QWidget *parent = nullptr);

    /// `spoken` is what screen readers say of both.
    void setFigure(const QString &number, const QString &words, const QString &spoken);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QLabel *m_number;
    QLabel *m_words;
};
