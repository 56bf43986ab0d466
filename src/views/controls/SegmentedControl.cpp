#include "views/controls/SegmentedControl.h"

#include "views/controls/PaintedButton.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QButtonGroup>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QPainter>

namespace {

constexpr int segmentPadding = 12;
constexpr int trackPadding = 2;

class Segment : public PaintedButton {
public:
    Segment(const QString &text, QWidget *parent) : PaintedButton(parent)
    {
        setText(text);
        setAccessibleName(text);
        setCheckable(true);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }

    QSize sizeHint() const override
    {
        return {Fonts::width(Fonts::Role::Secondary, text()) + 2 * segmentPadding,
                Metrics::scaled(Metrics::quietButton) - 2 * trackPadding};
    }

protected:
    // The Tab key comes to the chosen one, from both sides.
    void focusInEvent(QFocusEvent *event) override
    {
        const bool isTab = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
        if (isTab && !isChecked()) return group()->checkedButton()->setFocus(event->reason());
        PaintedButton::focusInEvent(event);
    }
    void paintContent(QPainter &painter) override
    {
        const Theme &theme = Theme::current();
        if (isChecked()) Painting::roundedBox(painter, rect(), ring().radius, theme.window);
        painter.setPen(isChecked() || underMouse() ? theme.text : theme.secondaryText);
        Fonts::drawLine(painter, Fonts::Role::Secondary, rect(), Qt::AlignHCenter, text());
    }
};

} // namespace

SegmentedControl::SegmentedControl(const QStringList &texts, QWidget *parent)
    : QWidget(parent), m_buttons(new QButtonGroup{this})
{
    auto *row = new QHBoxLayout{this};
    row->setContentsMargins(trackPadding, trackPadding, trackPadding, trackPadding);
    row->setSpacing(trackPadding);
    for (const QString &each : texts) {
        auto *segment = new Segment{each, this};
        m_buttons->addButton(segment, int(m_buttons->buttons().size()));
        row->addWidget(segment);
    }
    choose(0);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(m_buttons, &QButtonGroup::idClicked, this, &SegmentedControl::picked);
}

int SegmentedControl::chosen() const { return m_buttons->checkedId(); }

void SegmentedControl::choose(int index) { m_buttons->button(index)->setChecked(true); }

void SegmentedControl::paintEvent(QPaintEvent *)
{
    QPainter painter{this};
    Painting::roundedBox(painter, rect(), Metrics::rowRadius, Theme::current().hover);
}
