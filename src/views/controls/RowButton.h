#pragma once

#include "views/controls/PaintedButton.h"
#include "views/theme/Icons.h"

#include <optional>

/// A button as wide as its column: a text at its beginning, cut where it is too long, and a quiet note at
/// its end.
class RowButton : public PaintedButton {
    Q_OBJECT

public:
    /// How far its background stands out of the text.
    static constexpr int padding = 6;

    struct Content {
        QString text;
        QString note;
        bool isDone = false; ///< struck through
        std::optional<Icon> icon{};
    };
    explicit RowButton(QWidget *parent = nullptr);

    void setContent(const Content &content);

    QSize sizeHint() const override;

protected:
    void paintContent(QPainter &painter) override;

private:
    Content m_content;
};
