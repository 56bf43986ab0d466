#include "views/habits/HabitLookPicker.h"

#include "model/settings/KWLocalizedString.h"
#include "views/controls/FlowLayout.h"
#include "views/controls/IconButton.h"
#include "views/habits/HabitLook.h"
#include "views/theme/ListColors.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QButtonGroup>
#include <QPainter>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int swatchSide = 28;

// A colour to choose, with a ring when it is chosen.
class Swatch : public PaintedButton {
public:
    Swatch(const QString &value, const QString &name) : m_value(value)
    {
        setAccessibleName(name);
        setToolTip(name);
        setCheckable(true);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }
    QSize sizeHint() const override { return {Metrics::scaled(swatchSide), Metrics::scaled(swatchSide)}; }

protected:
    Ring ring() const override { return {QRectF{rect()}, height() / 2.0}; }
    void paintContent(QPainter &painter) override
    {
        const QRectF disc = QRectF{rect()}.adjusted(6, 6, -6, -6);
        Painting::roundedBox(painter, disc, disc.height() / 2, HabitLook::color(m_value));
        if (!isChecked()) return;
        const QRectF around = disc.adjusted(-3.5, -3.5, 3.5, 3.5);
        Painting::roundedBox(painter, around, around.height() / 2, Qt::transparent, Theme::current().text);
    }

private:
    const QString m_value;
};

} // namespace

HabitLookPicker::HabitLookPicker(const QString &iconRes, const QString &color, QWidget *parent)
    : QWidget(parent), m_iconRes(iconRes), m_color(color), m_pictures(new QButtonGroup{this})
{
    auto *column = new QVBoxLayout{this};
    column->setContentsMargins({});
    column->setSpacing(Metrics::grid);
    column->addWidget(makePictures());
    column->addWidget(makeColors());
}

QWidget *HabitLookPicker::makePictures()
{
    auto *row = new QWidget;
    auto *layout = new FlowLayout{row};
    layout->setContentsMargins({});
    layout->setSpacing(2);
    const Icon shown = HabitLook::icon(m_iconRes);
    for (const HabitLook::Picture &each : HabitLook::pictures) {
        auto *button = new IconButton{each.icon, KWLocalizedString(each.title)};
        button->setObjectName(u"habitPicture-"_s + QLatin1StringView{each.name});
        button->setCheckable(true);
        button->setChecked(each.icon == shown);
        m_pictures->addButton(button);
        layout->addWidget(button);
        connect(button, &QAbstractButton::toggled, this, [this, name = each.name](bool isOn) {
            if (isOn) m_iconRes = QString::fromLatin1(name);
        });
    }
    return row;
}

QWidget *HabitLookPicker::makeColors()
{
    auto *row = new QWidget;
    auto *layout = new FlowLayout{row};
    layout->setContentsMargins({});
    layout->setSpacing(2);
    auto *colors = new QButtonGroup{this};
    for (const ListColor &each : listColors) {
        const QString value = QString::fromLatin1(each.value);
        if (value.isEmpty()) continue;
        auto *swatch = new Swatch{value, KWLocalizedString(each.name)};
        swatch->setObjectName(u"habitColor-"_s + QString::fromLatin1(each.name));
        swatch->setChecked(value.compare(m_color, Qt::CaseInsensitive) == 0);
        colors->addButton(swatch);
        layout->addWidget(swatch);
        connect(swatch, &QAbstractButton::toggled, this, [this, value](bool isOn) {
            if (isOn) m_color = value;
        });
    }
    return row;
}
