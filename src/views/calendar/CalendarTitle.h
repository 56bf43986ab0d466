#pragma once

#include <QWidget>

/// The title of a page, with a shorter form where there is no room for it.
class CalendarTitle : public QWidget {
    Q_OBJECT

public:
    explicit CalendarTitle(QWidget *parent = nullptr);

    void setTexts(const QString &text, const QString &shorter);
    int shortWidth() const; ///< of the shorter form

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_text;
    QString m_shorter;
};
