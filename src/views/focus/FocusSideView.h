#pragma once

#include <QWidget>

class IconButton;
class QVBoxLayout;

/// The right column of focus: what was done today, the records, the last days and the statistics.
class FocusSideView : public QWidget {
    Q_OBJECT

public:
    explicit FocusSideView(QWidget *parent = nullptr);

    /// Shows a button that closes the column, which lies over the session then.
    void setHasClose(bool hasClose);

Q_SIGNALS:
    void closeRequested();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QLayout *makeHead();

    IconButton *m_close;
    QVBoxLayout *m_parts;
};
