#pragma once

#include <QWidget>

/// The head of a page: its title, and a quiet note beside it.
class PageHeader : public QWidget {
    Q_OBJECT

public:
    explicit PageHeader(QWidget *parent = nullptr);

    void setTitle(const QString &title);
    void setNote(const QString &note);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_title;
    QString m_note;
};
