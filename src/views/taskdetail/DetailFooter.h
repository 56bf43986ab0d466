#pragma once

#include <QStringList>
#include <QWidget>

/// The bottom line of the detail: the list with its colour, and the tags.
class DetailFooter : public QWidget {
    Q_OBJECT

public:
    explicit DetailFooter(QWidget *parent = nullptr);

    void setContent(const QString &listName, const QString &listColor, const QStringList &tags);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_listName;
    QString m_listColor;
    QStringList m_tags;
};
