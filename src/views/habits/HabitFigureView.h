#pragma once

#include <QWidget>

class QLabel;

/// A number that counts, with what it is below it and a quiet line more.
class HabitFigureView : public QWidget {
    Q_OBJECT

public:
    explicit HabitFigureView(const char *name, QWidget *parent = nullptr);

    void setFigure(const QString &number, const QString &words, const QString &more = {});

private:
    QLabel *m_number;
    QLabel *m_words;
    QLabel *m_more;
};
