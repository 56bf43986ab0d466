#include "views/main/MainWindow.h"

#include "model/settings/KWLocalizedString.h"
#include "model/settings/KWUserDefaults.h"
#include "views/addfield/FieldPickers.h"
#include "views/addfield/KWNewTaskTextField.h"
#include "views/calendar/CalendarPane.h"
#include "views/controls/TabOrder.h"
#include "views/focus/FocusPane.h"
#include "views/focus/FocusSideView.h"
#include "views/habits/HabitDetailView.h"
#include "views/habits/HabitListView.h"
#include "views/habits/HabitPane.h"
#include "views/main/SheetShadow.h"
#include "views/menu/HiddenMenuBar.h"
#include "views/menu/MainMenu.h"
#include "views/menu/MenuButton.h"
#include "views/sidebar/AccountHeader.h"
#include "views/sidebar/KWProjectListView.h"
#include "views/sidebar/SidebarView.h"
#include "views/taskdetail/DetailHeader.h"
#include "views/taskdetail/TaskDetailView.h"
#include "views/tasklist/TaskListPane.h"
#include "views/tasklist/TaskListView.h"
#include "views/theme/Metrics.h"
#include "views/theme/ThemeConfigurator.h"
#include "views/toast/Toast.h"
#include "views/web/WebPane.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QSplitter>
#include <QStackedWidget>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr std::chrono::milliseconds toastTime = 5s;
constexpr qsizetype mostUndoSteps = 100;

} // namespace

MainWindow::MainWindow(CXClock &clock, KWUserDefaults &defaults)
    : m_clock(clock)
    , m_defaults(defaults)
    , m_splitter(new QSplitter{this})
    , m_sidebar(new SidebarView)
    , m_listPane(new TaskListPane{clock})
    , m_calendarPane(new CalendarPane{clock})
    , m_habitPane(new HabitPane)
    , m_focusPane(new FocusPane)
    , m_summaryPane(new WebPane)
    , m_pages(new QStackedWidget)
    , m_detail(new TaskDetailView{clock})
    , m_habitDetail(new HabitDetailView)
    , m_focusSide(new FocusSideView)
    , m_details(new QStackedWidget)
    , m_sheetShadow(new SheetShadow{*this})
    , m_toast(new Toast{*this})
{
    setObjectName(u"mainWindow"_s);
    setWindowTitle(QCoreApplication::applicationName());
    setMinimumSize(Metrics::windowMinimumWidth, Metrics::windowMinimumHeight);

    for (QWidget *each : {static_cast<QWidget *>(m_listPane), static_cast<QWidget *>(m_calendarPane),
                          static_cast<QWidget *>(m_habitPane), static_cast<QWidget *>(m_focusPane),
                          static_cast<QWidget *>(m_summaryPane)})
        m_pages->addWidget(each);
    for (QWidget *each : {static_cast<QWidget *>(m_detail), static_cast<QWidget *>(m_habitDetail),
                          static_cast<QWidget *>(m_focusSide)})
        m_details->addWidget(each);
    m_splitter->setObjectName(u"columns"_s);
    m_splitter->setChildrenCollapsible(false);
    for (QWidget *column : {static_cast<QWidget *>(m_sidebar), static_cast<QWidget *>(m_pages),
                            static_cast<QWidget *>(m_details)})
        m_splitter->addWidget(column);
    m_splitter->setStretchFactor(1, 1);

    auto *layout = new QVBoxLayout{this};
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(m_splitter);

    connect(&ThemeConfigurator::shared(), &ThemeConfigurator::themeChanged, this, &MainWindow::arrange);
    connect(m_splitter, &QSplitter::splitterMoved, this, [this](int, int handle) {
        if (handle == 1) keepSidebarWidth();
    });
    connect(&m_detail->header(), &DetailHeader::closeRequested, this, &MainWindow::closeDetailSheet);
    for (QWidget *beside : {m_sidebar->tree().viewport(), m_listPane->list().viewport(),
                            m_habitPane->list().viewport(), static_cast<QWidget *>(m_focusPane)})
        beside->installEventFilter(this);
    for (const CalendarView *each : m_calendarPane->views())
        each->viewport()->installEventFilter(this);
    connect(m_focusSide, &FocusSideView::closeRequested, this, &MainWindow::closeDetailSheet);
    connect(m_focusPane, &FocusPane::recordsRequested, this, &MainWindow::openDetail);
    connect(m_toast, &Toast::actionTriggered, this, &MainWindow::performToastAction);
    FieldPickers &pickers = m_listPane->addField().pickers();
    setTabOrder(&m_listPane->addField(), &pickers);
    setTabOrder(&pickers.list(), &m_toast->actionButton());
    setTabOrder(&m_toast->actionButton(), &m_listPane->list());
    restoreState();
}

MainWindow::~MainWindow() = default;

void MainWindow::setMenu(MainMenu &menu)
{
    auto *bar = new HiddenMenuBar{menu, *this};
    static_cast<QVBoxLayout *>(layout())->insertWidget(0, bar);
    m_sidebar->header().menuButton().setMenu(menu);
    menu.attachTo(*this);
}

// With its title bar it fits on the screen.
QSize MainWindow::firstSize() const
{
    const QSize frame{0, style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, this)};
    return QSize{Metrics::windowWidth, Metrics::windowHeight}.boundedTo(screen()->availableSize() - frame);
}

void MainWindow::restoreState()
{
    if (!restoreGeometry(m_defaults.value(Settings::mainWindowGeometry))) resize(firstSize());
    if (!m_splitter->restoreState(m_defaults.value(Settings::mainWindowSplitter)))
        m_splitter->setSizes({Metrics::scaled(Metrics::sidebarWidth),
                              width() - Metrics::scaled(Metrics::sidebarWidth + Metrics::detailWidth),
                              Metrics::scaled(Metrics::detailWidth)});
    arrange();
    applySidebarWidth();
}

// It is the same beside the list and beside the calendar, and as large again when the text is.
void MainWindow::applySidebarWidth()
{
    const int chosen = Metrics::scaled(m_defaults.value(Settings::sidebarWidth));
    QList<int> sizes = m_splitter->sizes();
    if (chosen == 0 || sizes.size() < 2) return;
    sizes[1] += sizes[0] - chosen;
    sizes[0] = chosen;
    m_splitter->setSizes(sizes);
}

void MainWindow::keepSidebarWidth()
{
    const int width = qRound(m_sidebar->width() / Metrics::textScale());
    m_defaults.set(Settings::sidebarWidth, width);
}

void MainWindow::saveState()
{
    m_defaults.set(Settings::mainWindowGeometry, saveGeometry());
    // Without the detail beside the list the columns are not what the person chose.
    if (!m_hasSheet) m_defaults.set(Settings::mainWindowSplitter, m_splitter->saveState());
}

void MainWindow::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    arrange();
}

void MainWindow::arrange()
{
    limitColumns();
    const bool needsWidth = isCalendarShown() || isSummaryShown();
    const bool hasSheet = needsWidth || width() < Metrics::scaled(Metrics::narrowWindowWidth);
    if (hasSheet != m_hasSheet) {
        if (hasSheet) m_defaults.set(Settings::mainWindowSplitter, m_splitter->saveState());
        m_hasSheet = hasSheet;
        if (hasSheet) {
            m_details->setParent(this);
            setSheetShown(false);
        } else {
            m_sheetShadow->hide();
            m_splitter->addWidget(m_details);
            m_details->show();
            m_splitter->restoreState(m_defaults.value(Settings::mainWindowSplitter));
        }
        applySidebarWidth();
        m_detail->setAutoFillBackground(hasSheet);
        m_habitDetail->setAutoFillBackground(hasSheet);
        m_focusSide->setAutoFillBackground(hasSheet);
        m_detail->header().setHasClose(hasSheet);
        m_habitDetail->setHasClose(hasSheet);
        m_focusSide->setHasClose(hasSheet);
        m_focusPane->setHasSheet(hasSheet);
    }
    if (m_hasSheet) placeSheet();
}

// Large text needs wider columns, as far as the list has room beside them.
void MainWindow::limitColumns()
{
    m_sidebar->setMinimumWidth(std::min(Metrics::scaled(Metrics::sidebarMinimumWidth), width() / 3));
    m_sidebar->setMaximumWidth(Metrics::scaled(Metrics::sidebarMaximumWidth));
    m_details->setMinimumWidth(Metrics::scaled(Metrics::detailMinimumWidth));
    m_details->setMaximumWidth(Metrics::scaled(Metrics::detailMaximumWidth));
}

void MainWindow::placeSheet()
{
    const int sheetWidth = qMin(Metrics::scaled(Metrics::detailWidth), width());
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    const QRect columns = m_splitter->geometry(); // below the menu bar, when that is shown
    m_details->setGeometry(isMirrored ? 0 : width() - sheetWidth, columns.top(), sheetWidth,
                           columns.height());
    m_sheetShadow->standBeside(m_details->geometry());
    m_details->raise();
    m_toast->raise();
}

void MainWindow::setSheetShown(bool isShown)
{
    m_details->setVisible(isShown);
    m_sheetShadow->setVisible(isShown);
}

void MainWindow::setCalendarShown(bool isShown)
{
    if (isShown == isCalendarShown()) return;
    showPage(isShown ? static_cast<QWidget &>(*m_calendarPane) : *m_listPane, *m_detail);
}

bool MainWindow::isCalendarShown() const { return m_pages->currentWidget() == m_calendarPane; }

void MainWindow::setHabitsShown(bool isShown)
{
    if (isShown == isHabitsShown()) return;
    if (isShown)
        showPage(*m_habitPane, *m_habitDetail);
    else
        showPage(*m_listPane, *m_detail);
}

bool MainWindow::isHabitsShown() const { return m_pages->currentWidget() == m_habitPane; }

void MainWindow::setFocusShown(bool isShown)
{
    if (isShown == isFocusShown()) return;
    if (isShown)
        showPage(*m_focusPane, *m_focusSide);
    else
        showPage(*m_listPane, *m_detail);
}

void MainWindow::setSummaryShown(bool isShown)
{
    if (isShown == isSummaryShown()) return;
    showPage(isShown ? static_cast<QWidget &>(*m_summaryPane) : *m_listPane, *m_detail);
}

bool MainWindow::isSummaryShown() const { return m_pages->currentWidget() == m_summaryPane; }

bool MainWindow::isFocusShown() const { return m_pages->currentWidget() == m_focusPane; }

void MainWindow::showPage(QWidget &middle, QWidget &detail)
{
    const bool hadKeyboard = m_pages->isAncestorOf(focusWidget()) || m_details->isAncestorOf(focusWidget());
    m_pages->setCurrentWidget(&middle);
    m_details->setCurrentWidget(&detail);
    arrange();
    if (hadKeyboard) middle.setFocus(Qt::OtherFocusReason);
}

QWidget &MainWindow::middle() const { return *m_pages->currentWidget(); }

void MainWindow::openDetail()
{
    if (m_hasSheet) {
        setSheetShown(true);
        placeSheet();
    }
    m_details->currentWidget()->setFocus(Qt::OtherFocusReason);
}

void MainWindow::closeDetailSheet()
{
    if (m_hasSheet) setSheetShown(false);
    m_pages->currentWidget()->setFocus(Qt::OtherFocusReason);
}

bool MainWindow::focusNextPrevChild(bool isForward) { return moveFocusInTabOrder(*this, isForward); }

void MainWindow::keyPressEvent(QKeyEvent *event)
{
    const bool isSheetShown = m_hasSheet && m_details->isVisible();
    if (event->key() == Qt::Key_Escape && (isSheetShown || m_details->isAncestorOf(focusWidget())))
        closeDetailSheet();
    else
        QWidget::keyPressEvent(event);
}

// A press beside the sheet.
bool MainWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (m_hasSheet && event->type() == QEvent::MouseButtonPress) setSheetShown(false);
    return QWidget::eventFilter(watched, event);
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    saveState();
    QWidget::closeEvent(event);
}

void MainWindow::showToast(const QString &message, const QString &action)
{
    m_failedWork = nullptr;
    m_toast->showMessage(message, action);
    endToastLater();
}

void MainWindow::endToastLater()
{
    m_toastEnd = m_clock.callAfter(toastTime, [this] {
        if (m_toast->actionButton().hasFocus()) return endToastLater();
        m_toastAction = {};
        m_undoOffer = 0;
        m_failedWork = nullptr;
        m_toast->dismiss();
    });
}

void MainWindow::performToastAction()
{
    m_toastEnd.cancel();
    m_undoOffer = 0;
    if (const auto perform = std::exchange(m_toastAction, {})) perform();
}

void MainWindow::showAction(const QString &message, const QString &action,
                            const std::function<void()> &perform)
{
    m_toastAction = perform;
    m_undoOffer = 0;
    showToast(message, action);
}

void MainWindow::addUndo(const QString &message, const std::function<void()> &undo)
{
    m_undoSteps.append({++m_lastOffer, message, undo});
    if (m_undoSteps.size() > mostUndoSteps) m_undoSteps.removeFirst();
}

ToastPort::Offer MainWindow::showUndo(const QString &message, const std::function<void()> &undo)
{
    addUndo(message, undo);
    const ToastPort::Offer offer = m_lastOffer;
    showAction(message, KWLocalizedString("Undo"), [this, offer] {
        if (const auto step = takeStep(offer)) step->undo();
    });
    return m_undoOffer = offer;
}

std::optional<MainWindow::UndoStep> MainWindow::takeStep(ToastPort::Offer offer)
{
    const auto found = std::ranges::find(m_undoSteps, offer, &UndoStep::offer);
    if (found == m_undoSteps.end()) return std::nullopt;
    const UndoStep step = *found;
    m_undoSteps.erase(found);
    return step;
}

void MainWindow::endUndo(ToastPort::Offer offer, std::function<void()> later)
{
    const auto step = std::ranges::find(m_undoSteps, offer, &UndoStep::offer);
    if (step != m_undoSteps.end() && later)
        step->undo = std::move(later);
    else if (step != m_undoSteps.end())
        m_undoSteps.erase(step);
    if (offer == 0 || offer != m_undoOffer) return;
    m_undoOffer = 0;
    m_toastEnd.cancel();
    m_toastAction = {};
    m_toast->dismiss();
}

bool MainWindow::isUndoHeld(ToastPort::Offer offer) const
{
    return offer != 0 && offer == m_undoOffer && m_toast->actionButton().hasFocus();
}

void MainWindow::showMessage(const QString &message)
{
    m_toastAction = {};
    m_undoOffer = 0;
    showToast(message, {});
}

void MainWindow::showFailure(const QString &sentence, const QObject &work)
{
    showMessage(sentence);
    m_failedWork = &work;
}

void MainWindow::endFailure(const QObject &work)
{
    if (m_failedWork != &work) return;
    m_failedWork = nullptr;
    m_toastEnd.cancel();
    m_toast->dismiss();
}

bool MainWindow::takeBackShown()
{
    if (m_undoOffer == 0) return false;
    m_toast->dismiss();
    performToastAction();
    return true;
}

bool MainWindow::takeBack()
{
    if (m_undoSteps.isEmpty()) return false;
    if (m_undoSteps.last().offer == m_undoOffer) return takeBackShown();
    const UndoStep last = m_undoSteps.takeLast();
    showMessage(KWLocalizedString("Undone: %1").arg(last.message));
    last.undo(); // which says so when it cannot
    return true;
}
