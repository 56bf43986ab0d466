#include "views/preferences/PreferencesWindow.h"

#include "model/settings/KWLocalizedString.h"
#include "views/controls/PlainLabel.h"
#include "views/preferences/NameDelegate.h"
#include "views/preferences/PreferencesPage.h"
#include "views/theme/Metrics.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>
#include <QStackedWidget>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize preferencesSize{760, 600};
constexpr int namesWidth = 200;

} // namespace

PreferencesWindow::PreferencesWindow(QWidget *parent)
    : QWidget(parent, Qt::Window)
    , m_names(new QListWidget)
    , m_pages(new QStackedWidget)
    , m_message(new QLabel)
{
    setObjectName(u"preferencesWindow"_s);
    setWindowTitle(KWLocalizedString("Preferences"));
    m_names->setObjectName(u"preferencesPages"_s);
    m_names->setAccessibleName(KWLocalizedString("Pages of the preferences"));
    m_names->setFrameShape(QFrame::NoFrame);
    m_names->setMouseTracking(true);
    m_names->viewport()->setBackgroundRole(QPalette::AlternateBase);
    m_names->setItemDelegate(new NameDelegate{m_names});
    m_message->setObjectName(u"preferencesMessage"_s);
    m_message->setTextFormat(Qt::PlainText);
    m_message->setWordWrap(true);
    m_message->setContentsMargins(Metrics::margin, Metrics::gap, Metrics::margin, Metrics::gap);
    m_message->setForegroundRole(QPalette::Link);
    m_message->hide();

    // The names stand in line with the titles of the pages.
    auto *left = new QFrame;
    left->setAutoFillBackground(true);
    left->setBackgroundRole(QPalette::AlternateBase);
    auto *leftColumn = new QVBoxLayout{left};
    leftColumn->setContentsMargins(0, Metrics::sideMargin, 0, Metrics::sideMargin);
    leftColumn->addWidget(m_names);
    auto *right = new QVBoxLayout;
    right->setSpacing(0);
    right->addWidget(m_pages, 1);
    right->addWidget(m_message);
    auto *layout = new QHBoxLayout{this};
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(left);
    layout->addLayout(right, 1);

    connect(m_names, &QListWidget::currentRowChanged, this, [this](int row) {
        m_pages->setCurrentIndex(row);
        m_message->hide();
    });
    connect(new QShortcut{QKeySequence{u"Ctrl+W"_s}, this}, &QShortcut::activated, this, &QWidget::close);
    const QSize wanted{Metrics::scaled(preferencesSize.width()), Metrics::scaled(preferencesSize.height())};
    resize(wanted.boundedTo(screen()->availableSize()));
}

void PreferencesWindow::addPage(PreferencesPage *page)
{
    auto *area = new QScrollArea;
    area->setObjectName(page->objectName());
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(page);
    m_pages->addWidget(area);
    m_names->addItem(page->title());
    connect(page, &PreferencesPage::failed, this, &PreferencesWindow::showMessage);
    connect(page, &PreferencesPage::saved, m_message, &QWidget::hide);
}

void PreferencesWindow::showPage(const QString &name)
{
    int row = 0;
    for (int i = 0; i < m_pages->count(); ++i)
        if (m_pages->widget(i)->objectName() == name) row = i;
    m_names->setCurrentRow(row);
    m_names->setFocus(Qt::OtherFocusReason);
}

void PreferencesWindow::showMessage(const QString &sentence) { sayIn(*m_message, sentence); }

void PreferencesWindow::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    m_names->setFixedWidth(std::min(Metrics::scaled(namesWidth), width() / 3));
}

void PreferencesWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}
