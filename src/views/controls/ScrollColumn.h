#pragma once

#include <QScrollArea>

/// Lets what is higher than its place scroll up and down, without a frame or background of its own. A control
/// that the keyboard comes to is brought into sight.
class ScrollColumn final : public QScrollArea {
    Q_OBJECT

public:
    /// Owns the content, whose layout is complete as far as it is to be seen at once.
    explicit ScrollColumn(QWidget *content, QWidget *parent = nullptr);
    ~ScrollColumn() override;

private:
    void follow(QWidget *before, QWidget *now);
};
