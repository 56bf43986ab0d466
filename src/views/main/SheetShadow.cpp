#include "views/main/SheetShadow.h"

#include <QLinearGradient>
#include <QPainter>

namespace {

constexpr int shadowWidth = 12;
constexpr double darkest = 0.14;

} // namespace

SheetShadow::SheetShadow(QWidget &window) : QWidget(&window)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void SheetShadow::standBeside(const QRect &sheet)
{
    const int left = isRightToLeft() ? sheet.right() + 1 : sheet.left() - shadowWidth;
    setGeometry(left, sheet.top(), shadowWidth, sheet.height());
    raise();
}

void SheetShadow::paintEvent(QPaintEvent *)
{
    const bool isMirrored = isRightToLeft();
    QLinearGradient fading{isMirrored ? rect().topLeft() : rect().topRight(),
                           isMirrored ? rect().topRight() : rect().topLeft()};
    fading.setColorAt(0, QColor::fromRgbF(0, 0, 0, darkest));
    fading.setColorAt(1, Qt::transparent);
    QPainter painter{this};
    painter.fillRect(rect(), fading);
}
