#include "views/sidebar/SidebarView.h"

#include "views/sidebar/AccountHeader.h"
#include "views/sidebar/KWProjectListView.h"
#include "views/theme/Metrics.h"
#include "views/theme/Theme.h"

#include <QPainter>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

SidebarView::SidebarView(QWidget *parent)
    : QWidget(parent), m_header(new AccountHeader{this}), m_tree(new KWProjectListView{this})
{
    setObjectName(u"sidebar"_s);
    auto *layout = new QVBoxLayout{this};
    layout->setContentsMargins(0, 0, 0, Metrics::gap);
    layout->setSpacing(0);
    layout->addWidget(m_header);
    layout->addWidget(m_tree, 1);
}

void SidebarView::paintEvent(QPaintEvent *) { QPainter{this}.fillRect(rect(), Theme::current().sidebar); }
