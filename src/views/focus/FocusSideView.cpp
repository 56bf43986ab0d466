#include "views/focus/FocusSideView.h"

#include "model/settings/KWLocalizedString.h"
#include "views/controls/IconButton.h"
#include "views/controls/PlainLabel.h"
#include "views/theme/Metrics.h"
#include "views/theme/Theme.h"

#include <QLabel>
#include <QPainter>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

FocusSideView::FocusSideView(QWidget *parent)
    : QWidget(parent)
    , m_close(new IconButton{Icon::Close, KWLocalizedString("Close")})
    , m_parts(new QVBoxLayout)
{
    setObjectName(u"focusSide"_s);
    setAccessibleName(KWLocalizedString("Records and Statistics"));
    auto *layout = new QVBoxLayout{this};
    layout->addLayout(makeHead());
    layout->addLayout(m_parts);
    layout->addStretch(1);
}

QLayout *FocusSideView::makeHead()
{
    m_close->setObjectName(u"closeFocusSide"_s);
    m_close->hide();
    connect(m_close, &QAbstractButton::clicked, this, &FocusSideView::closeRequested);
    auto *row = new QHBoxLayout;
    row->addWidget(makePlainLabel(KWLocalizedString("Today"), Fonts::Role::DetailTitle), 1);
    row->addWidget(m_close, 0, Qt::AlignTop);
    return row;
}

void FocusSideView::setHasClose(bool hasClose) { m_close->setVisible(hasClose); }

void FocusSideView::paintEvent(QPaintEvent *)
{
    QPainter painter{this};
    painter.fillRect(rect(), Theme::current().window);
    // Over the session it has an edge of its own; beside it the splitter draws one.
    if (autoFillBackground())
        painter.fillRect(QStyle::visualRect(layoutDirection(), rect(), {0, 0, 1, height()}),
                         Theme::current().popupEdge);
}
