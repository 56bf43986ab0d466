#pragma once

#include "focus/FocusStatistics.h"

#include <QWidget>

/// What lists or tags have of the focus of a period: a name, a length and a bar each.
class FocusShareList : public QWidget {
    Q_OBJECT

public:
    FocusShareList(const char *name, const QString &what, QWidget *parent = nullptr);

    void setShares(const QList<FocusShare> &shares);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    int rowHeight() const;

    QString m_what;
    QList<FocusShare> m_shares;
};
