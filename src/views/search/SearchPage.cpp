#include "views/search/SearchPage.h"

#include "model/text/ShortenedText.h"
#include "views/controls/PlainLabel.h"
#include "views/theme/Metrics.h"
#include "views/theme/ThemeConfigurator.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int mostOfTextQuoted = 60;

FoundRow heading(const QString &title) { return {.kind = FoundRow::Kind::Heading, .id = {}, .title = title}; }

} // namespace

SearchPage::SearchPage(QWidget &covered)
    : QWidget(&covered)
    , m_covered(covered)
    , m_field(new QLineEdit)
    , m_rows(new FoundRowsView{tr("Tasks that were found")})
    , m_nothing(makePlainLabel({}, Fonts::Role::Body, QPalette::PlaceholderText))
    , m_more(makePlainLabel(tr("There are more. Type another word to find fewer."), Fonts::Role::Secondary,
                            QPalette::PlaceholderText))
{
    setObjectName(u"searchPage"_s);
    setAutoFillBackground(true);
    m_field->setObjectName(u"searchField"_s);
    m_field->setAccessibleName(tr("Search in titles and texts"));
    m_field->setPlaceholderText(m_field->accessibleName());
    const auto dress = [this] { m_field->setMinimumHeight(Metrics::scaled(Metrics::addField)); };
    dress();
    connect(&ThemeConfigurator::shared(), &ThemeConfigurator::themeChanged, this, dress);
    m_field->installEventFilter(this);
    m_rows->setFocusPolicy(Qt::StrongFocus);
    m_rows->setContextMenuPolicy(Qt::CustomContextMenu);
    m_rows->installEventFilter(this);
    m_nothing->setObjectName(u"nothingFound"_s);
    m_nothing->setAlignment(Qt::AlignHCenter);
    m_more->setObjectName(u"moreFound"_s);
    m_more->setAlignment(Qt::AlignHCenter);
    m_more->setContentsMargins(0, 0, 0, Metrics::gap);

    auto *column = new QVBoxLayout{this};
    column->setContentsMargins(Metrics::margin, Metrics::margin, Metrics::margin, 0);
    column->setSpacing(Metrics::gap);
    column->addWidget(m_field);
    column->addWidget(m_nothing);
    column->addWidget(m_rows, 1);
    column->addWidget(m_more);
    setFocusProxy(m_field);
    covered.installEventFilter(this);
    setGeometry(covered.rect());
    hide();
    connect(m_field, &QLineEdit::textChanged, this, &SearchPage::typed);
    connect(m_rows, &FoundRowsView::currentMoved, this, [this] { Q_EMIT currentTaskChanged(currentTask()); });
    connect(m_rows, &FoundRowsView::markClicked, this, &SearchPage::completionToggled);
    connect(m_rows, &QWidget::customContextMenuRequested, this, &SearchPage::openMenu);
    connect(m_rows, &QListView::doubleClicked, this, [this] { Q_EMIT opened(currentTask()); });
}

void SearchPage::setText(const QString &text)
{
    m_field->setText(text);
    m_field->selectAll();
}

QString SearchPage::text() const { return m_field->text(); }

void SearchPage::setHits(QList<FoundRow> hits, FoundRowsView::InItsPlace other)
{
    const auto firstClosed = std::ranges::find(hits, true, &FoundRow::isClosed);
    const qsizetype open = firstClosed - hits.begin();
    const bool hasClosed = open < hits.size();
    if (hasClosed) hits.insert(open, heading(tr("Completed")));
    if (open > 0) hits.prepend(heading(tr("Open")));
    const bool isNothing = hits.isEmpty();
    m_nothing->setText(emptyText());
    m_nothing->setVisible(isNothing);
    m_rows->setRows(std::move(hits), other);
    if (!isNothing) return;
    if (m_rows->hasFocus()) m_field->setFocus(Qt::OtherFocusReason);
    Q_EMIT currentTaskChanged({});
}

void SearchPage::setHasMore(bool hasMore) { m_more->setVisible(hasMore); }

QString SearchPage::emptyText() const
{
    const QString typed = text().simplified();
    if (typed.isEmpty()) return tr("Type what to look for.");
    return tr("No task was found for “%1”.").arg(shortened(typed, mostOfTextQuoted));
}

QString SearchPage::currentTask() const
{
    const FoundRow *current = m_rows->current();
    return current ? current->id : QString{};
}

bool SearchPage::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == &m_covered) {
        if (event->type() == QEvent::Resize) setGeometry(m_covered.rect());
        return false;
    }
    if (watched == m_field && event->type() == QEvent::ShortcutOverride &&
        static_cast<QKeyEvent *>(event)->matches(QKeySequence::Undo)) {
        event->ignore(); // what was done to a hit is taken back before what was typed
        return true;
    }
    if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
    auto &key = static_cast<QKeyEvent &>(*event);
    if (watched == m_rows ? takeHitKey(key) : takeFieldKey(key)) return true;
    switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!currentTask().isEmpty()) Q_EMIT opened(currentTask());
        return true;
    case Qt::Key_Escape:
        Q_EMIT left();
        return true;
    default:
        return QWidget::eventFilter(watched, event);
    }
}

bool SearchPage::takeFieldKey(QKeyEvent &key)
{
    if (!m_rows->takeKey(key)) return false;
    const bool goesDown = key.key() == Qt::Key_Down || key.key() == Qt::Key_PageDown;
    if (goesDown && m_rows->current()) m_rows->setFocus(Qt::OtherFocusReason);
    return true;
}

bool SearchPage::takeHitKey(QKeyEvent &key)
{
    const QString task = currentTask();
    const bool isText = !key.text().isEmpty() && key.text().front().isPrint() &&
                        !(key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    if (key.key() == Qt::Key_Up && m_rows->isFirstCurrent()) {
        m_field->setFocus(Qt::OtherFocusReason);
    } else if (key.key() == Qt::Key_Space) {
        Q_EMIT completionToggled(task);
    } else if (key.key() == Qt::Key_Delete) {
        Q_EMIT deletionRequested(task);
    } else if (isText || key.key() == Qt::Key_Backspace) {
        m_field->setFocus(Qt::OtherFocusReason);
        QCoreApplication::sendEvent(m_field, &key);
    } else {
        return false;
    }
    return true;
}

void SearchPage::openMenu(const QPoint &position)
{
    const QModelIndex hit = m_rows->indexAt(position);
    if (!(hit.flags() & Qt::ItemIsSelectable)) return;
    m_rows->setCurrentIndex(hit);
    auto *menu = new QMenu{m_rows};
    menu->setObjectName(u"taskMenu"_s);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    Q_EMIT menuAboutToShow(*menu, currentTask());
    menu->popup(m_rows->viewport()->mapToGlobal(position));
}
