#include "views/palette/CommandPalette.h"

#include "views/palette/FoundRowsView.h"
#include "views/theme/Metrics.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int paletteWidth = 600;
constexpr int highestRows = 420;
constexpr int topOffset = 72;

} // namespace

CommandPalette::CommandPalette(QWidget &window)
    : PopupFrame(&window), m_field(new QLineEdit), m_rows(new FoundRowsView{tr("What was found")})
{
    setObjectName(u"commandPalette"_s);
    setAccessibleName(tr("Command palette"));
    m_field->setObjectName(u"paletteField"_s);
    m_field->setAccessibleName(tr("Find lists, tasks and commands"));
    m_field->setPlaceholderText(m_field->accessibleName());
    m_field->setMinimumHeight(Metrics::scaled(Metrics::addField));
    m_field->installEventFilter(this);
    m_rows->viewport()->setAutoFillBackground(false);
    auto *column = new QVBoxLayout{this};
    column->setContentsMargins(Metrics::gap, Metrics::gap, Metrics::gap, Metrics::gap);
    column->setSpacing(Metrics::grid);
    column->addWidget(m_field);
    column->addWidget(m_rows);
    connect(&m_rows->rows(), &QAbstractItemModel::modelReset, this, &CommandPalette::fitRows);
    connect(m_field, &QLineEdit::textChanged, this, &CommandPalette::typed);
    connect(m_field, &QLineEdit::returnPressed, this, &CommandPalette::takeCurrent);
    connect(m_rows, &QListView::clicked, this, &CommandPalette::takeCurrent);
}

QString CommandPalette::text() const { return m_field->text(); }

void CommandPalette::popUp()
{
    const QWidget &window = *parentWidget();
    const int wide = std::min(Metrics::scaled(paletteWidth), window.width() - 2 * Metrics::margin);
    place(window.mapToGlobal(QPoint{(window.width() - wide) / 2, topOffset}), {wide, sizeHint().height()});
    Q_EMIT typed({});
    show();
    m_field->setFocus(Qt::PopupFocusReason);
}

// Its head stays where it is, whatever is found.
void CommandPalette::fitRows()
{
    const int highest = std::min(Metrics::scaled(highestRows),
                                 parentWidget()->height() - topOffset - Metrics::margin -
                                     m_field->minimumHeight() - 2 * Metrics::gap - Metrics::grid);
    const int height = heightOfRows(*m_rows, highest);
    m_rows->setVisible(height > 0);
    m_rows->setFixedHeight(height);
    layout()->activate();
    place(pos(), {width(), sizeHint().height()});
}

void CommandPalette::takeCurrent()
{
    const FoundRow *current = m_rows->current();
    if (!current || !current->isEnabled) return;
    const FoundRow row = *current;
    close();
    Q_EMIT chosen(row);
}

bool CommandPalette::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress) return PopupFrame::eventFilter(watched, event);
    return m_rows->takeKey(static_cast<QKeyEvent &>(*event));
}
