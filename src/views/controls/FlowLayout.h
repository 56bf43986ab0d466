#pragma once

#include <QLayout>

/// Puts items behind each other as text runs, in as many lines as the width asks for.
class FlowLayout : public QLayout {
    Q_OBJECT

public:
    explicit FlowLayout(QWidget *parent = nullptr) : QLayout(parent) {}
    ~FlowLayout() override;

    void addItem(QLayoutItem *item) override { m_items.append(item); }
    void insertWidget(int index, QWidget *widget);
    int count() const override { return int(m_items.size()); }
    QLayoutItem *itemAt(int index) const override { return m_items.value(index); }
    QLayoutItem *takeAt(int index) override;

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override { return arrange({0, 0, width, 0}, Apply::No); }
    QSize minimumSize() const override;
    QSize sizeHint() const override { return minimumSize(); }
    void setGeometry(const QRect &bounds) override;

private:
    enum class Apply { No, Yes };
    int arrange(const QRect &bounds, Apply apply) const;

    QList<QLayoutItem *> m_items;
};
