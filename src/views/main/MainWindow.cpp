#include "views/main/MainWindow.h"

#include "model/settings/KWUserDefaults.h"
#include "views/addfield/KWNewTaskTextField.h"
#include "views/sidebar/KWProjectListView.h"
#include "views/sidebar/SidebarView.h"
#include "views/taskdetail/TaskDetailView.h"
#include "views/tasklist/TaskListPane.h"
#include "views/tasklist/TaskListView.h"
#include "views/theme/Metrics.h"
#include "views/toast/Toast.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr std::chrono::milliseconds toastTime = 5s;

} // namespace

MainWindow::MainWindow(CXClock &clock, KWUserDefaults &defaults)
    : m_clock(clock)
    , m_defaults(defaults)
    , m_splitter(new QSplitter{this})
    , m_sidebar(new SidebarView)
    , m_listPane(new TaskListPane{clock})
    , m_detail(new TaskDetailView{clock})
    , m_toast(new Toast{*this})
{
    setObjectName(u"mainWindow"_s);
    setWindowTitle(QCoreApplication::applicationName());
    setMinimumSize(Metrics::windowMinimumWidth, Metrics::windowMinimumHeight);

    m_sidebar->setMinimumWidth(Metrics::sidebarMinimumWidth);
    m_sidebar->setMaximumWidth(Metrics::sidebarMaximumWidth);
    m_detail->setMinimumWidth(Metrics::detailMinimumWidth);
    m_detail->setMaximumWidth(Metrics::detailMaximumWidth);
    m_splitter->setObjectName(u"columns"_s);
    m_splitter->setChildrenCollapsible(false);
    for (QWidget *column : {static_cast<QWidget *>(m_sidebar), static_cast<QWidget *>(m_listPane),
                            static_cast<QWidget *>(m_detail)})
        m_splitter->addWidget(column);
    m_splitter->setStretchFactor(1, 1);

    auto *layout = new QHBoxLayout{this};
    layout->setContentsMargins({});
    layout->addWidget(m_splitter);

    connect(m_toast, &Toast::actionTriggered, this, [this] {
        m_toastEnd.cancel();
        if (const auto undo = std::exchange(m_undo, {})) undo();
    });
    addShortcuts();
    restoreState();
}

MainWindow::~MainWindow() = default;

void MainWindow::addShortcuts()
{
    const auto on = [this](const QKeySequence &keys, auto action) {
        connect(new QShortcut{keys, this}, &QShortcut::activated, this, action);
    };
    // The offscreen platform knows no standard key for some of these.
    on(QKeySequence{u"Ctrl+N"_s}, [this] { m_listPane->addField().setFocus(Qt::ShortcutFocusReason); });
    on(QKeySequence{u"Ctrl+L"_s}, [this] { m_sidebar->tree().setFocus(Qt::ShortcutFocusReason); });
    on(QKeySequence{u"Ctrl+Q"_s}, [] { QCoreApplication::quit(); });
    on(QKeySequence{u"Ctrl+W"_s}, [this] { close(); });
}

void MainWindow::restoreState()
{
    if (!restoreGeometry(m_defaults.value(Settings::mainWindowGeometry)))
        resize(QSize{Metrics::windowWidth, Metrics::windowHeight}.boundedTo(screen()->availableSize()));
    if (!m_splitter->restoreState(m_defaults.value(Settings::mainWindowSplitter)))
        m_splitter->setSizes({Metrics::sidebarWidth,
                              Metrics::windowWidth - Metrics::sidebarWidth - Metrics::detailWidth,
                              Metrics::detailWidth});
    arrange();
}

void MainWindow::saveState()
{
    m_defaults.set(Settings::mainWindowGeometry, saveGeometry());
    // The columns of a narrow window are not what the person chose.
    if (!m_isNarrow) m_defaults.set(Settings::mainWindowSplitter, m_splitter->saveState());
}

void MainWindow::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    arrange();
}

void MainWindow::arrange()
{
    const bool isNarrow = width() < Metrics::narrowWindowWidth;
    if (isNarrow != m_isNarrow) {
        if (isNarrow) m_defaults.set(Settings::mainWindowSplitter, m_splitter->saveState());
        m_isNarrow = isNarrow;
        if (isNarrow) {
            m_detail->setParent(this);
            m_detail->hide();
        } else {
            m_splitter->addWidget(m_detail);
            m_detail->show();
            m_splitter->restoreState(m_defaults.value(Settings::mainWindowSplitter));
        }
        m_detail->setAutoFillBackground(isNarrow);
    }
    if (m_isNarrow) placeSheet();
}

void MainWindow::placeSheet()
{
    const int sheetWidth = qMin(Metrics::detailWidth, width());
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    m_detail->setGeometry(isMirrored ? 0 : width() - sheetWidth, 0, sheetWidth, height());
    m_detail->raise();
    m_toast->raise();
}

void MainWindow::openDetail()
{
    if (m_isNarrow) {
        m_detail->show();
        placeSheet();
    }
    m_detail->setFocus(Qt::OtherFocusReason);
}

void MainWindow::closeDetailSheet()
{
    if (m_isNarrow) m_detail->hide();
    m_listPane->list().setFocus(Qt::OtherFocusReason);
}

void MainWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && m_detail->isAncestorOf(focusWidget()))
        closeDetailSheet();
    else
        QWidget::keyPressEvent(event);
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    saveState();
    QWidget::closeEvent(event);
    Q_EMIT closed();
}

void MainWindow::showToast(const QString &message, const QString &action)
{
    m_toast->showMessage(message, action);
    m_toastEnd = m_clock.callAfter(toastTime, [this] {
        m_undo = {};
        m_toast->dismiss();
    });
}

void MainWindow::showUndo(const QString &message, const std::function<void()> &undo)
{
    m_undo = undo;
    showToast(message, tr("Undo"));
}

void MainWindow::showMessage(const QString &message)
{
    m_undo = {};
    showToast(message, {});
}
