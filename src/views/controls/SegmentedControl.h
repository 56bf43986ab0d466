#pragma once

#include <QStringList>
#include <QWidget>

class QAbstractButton;
class QButtonGroup;

/// A few choices beside each other, of which one holds. Tab goes to each, a press chooses it.
class SegmentedControl : public QWidget {
    Q_OBJECT

public:
    /// The first one holds.
    explicit SegmentedControl(const QStringList &texts, QWidget *parent = nullptr);

    int chosen() const;
    /// Tells nobody.
    void choose(int index);

Q_SIGNALS:
    void picked(int index);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QButtonGroup *m_buttons;
};
