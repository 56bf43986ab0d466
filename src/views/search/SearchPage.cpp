#include "views/search/SearchPage.h"

#include "views/controls/PlainLabel.h"
#include "views/palette/FoundRowsView.h"
#include "views/theme/Metrics.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

FoundRow heading(const QString &title) { return {.kind = FoundRow::Kind::Heading, .id = {}, .title = title}; }

} // namespace

SearchPage::SearchPage(QWidget &covered)
    : QWidget(&covered)
    , m_covered(covered)
    , m_field(new QLineEdit)
    , m_rows(new FoundRowsView{tr("Tasks that were found")})
    , m_nothing(makePlainLabel({}, Fonts::Role::Body, QPalette::PlaceholderText))
{
    setObjectName(u"searchPage"_s);
    setAutoFillBackground(true);
    m_field->setObjectName(u"searchField"_s);
    m_field->setAccessibleName(tr("Search in titles and texts"));
    m_field->setPlaceholderText(m_field->accessibleName());
    m_field->setMinimumHeight(Metrics::scaled(Metrics::addField));
    m_field->installEventFilter(this);
    m_nothing->setObjectName(u"nothingFound"_s);
    m_nothing->setAlignment(Qt::AlignHCenter);

    auto *column = new QVBoxLayout{this};
    column->setContentsMargins(Metrics::margin, Metrics::margin, Metrics::margin, 0);
    column->setSpacing(Metrics::gap);
    column->addWidget(m_field);
    column->addWidget(m_nothing);
    column->addWidget(m_rows, 1);
    setFocusProxy(m_field);
    covered.installEventFilter(this);
    setGeometry(covered.rect());
    hide();
    connect(m_field, &QLineEdit::textChanged, this, &SearchPage::typed);
    connect(m_rows, &FoundRowsView::currentMoved, this, [this] { Q_EMIT currentTaskChanged(currentTask()); });
    connect(m_rows, &QListView::doubleClicked, this, [this] { Q_EMIT opened(currentTask()); });
}

void SearchPage::setText(const QString &text)
{
    m_field->setText(text);
    m_field->selectAll();
}

QString SearchPage::text() const { return m_field->text(); }

void SearchPage::setHits(QList<FoundRow> hits)
{
    const auto firstClosed = std::ranges::find(hits, true, &FoundRow::isClosed);
    const qsizetype open = firstClosed - hits.begin();
    const bool hasClosed = open < hits.size();
    if (hasClosed) hits.insert(open, heading(tr("Completed")));
    if (open > 0) hits.prepend(heading(tr("Open")));
    const bool isNothing = hits.isEmpty();
    m_nothing->setText(text().simplified().isEmpty() ? tr("Type what to look for.")
                                                     : tr("No task has these words."));
    m_nothing->setVisible(isNothing);
    m_rows->setRows(std::move(hits));
    if (isNothing) Q_EMIT currentTaskChanged({});
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
    if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
    auto &key = static_cast<QKeyEvent &>(*event);
    if (m_rows->takeKey(key)) return true;
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
