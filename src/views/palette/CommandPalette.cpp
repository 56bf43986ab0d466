#include "views/palette/CommandPalette.h"

#include "views/palette/FoundRowsView.h"
#include "views/theme/Metrics.h"
#include "views/theme/PopupFrame.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize paletteSize{600, 460};
constexpr int topOffset = 72;

} // namespace

CommandPalette::CommandPalette(QWidget &window)
    : QFrame(&window, Qt::Popup | Qt::FramelessWindowHint)
    , m_field(new QLineEdit)
    , m_rows(new FoundRowsView{tr("What was found")})
{
    setObjectName(u"commandPalette"_s);
    setAccessibleName(tr("Command palette"));
    setAttribute(Qt::WA_DeleteOnClose);
    m_field->setObjectName(u"paletteField"_s);
    m_field->setAccessibleName(tr("Find lists, tasks and commands"));
    m_field->setPlaceholderText(m_field->accessibleName());
    m_field->setMinimumHeight(Metrics::scaled(Metrics::addField));
    m_field->setTextMargins(Metrics::gap, 0, Metrics::gap, 0);
    m_field->installEventFilter(this);
    auto *column = new QVBoxLayout{this};
    column->setContentsMargins(Metrics::gap, Metrics::gap, Metrics::gap, Metrics::gap);
    column->addWidget(m_field);
    column->addWidget(m_rows, 1);
    connect(m_field, &QLineEdit::textChanged, this, &CommandPalette::typed);
    connect(m_rows, &QListView::clicked, this, &CommandPalette::takeCurrent);
}

QString CommandPalette::text() const { return m_field->text(); }

void CommandPalette::popUp()
{
    const QSize wanted{Metrics::scaled(paletteSize.width()), Metrics::scaled(paletteSize.height())};
    const QWidget &window = *parentWidget();
    resize(wanted.boundedTo(window.size() - QSize{2 * Metrics::margin, topOffset + Metrics::margin}));
    move(window.mapToGlobal(QPoint{(window.width() - width()) / 2, topOffset}));
    show();
    m_field->setFocus(Qt::PopupFocusReason);
    Q_EMIT typed({});
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
    if (event->type() != QEvent::KeyPress) return QFrame::eventFilter(watched, event);
    auto &key = static_cast<QKeyEvent &>(*event);
    if (m_rows->takeKey(key)) return true;
    switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        takeCurrent();
        return true;
    case Qt::Key_Escape:
        close();
        return true;
    default:
        return QFrame::eventFilter(watched, event);
    }
}

void CommandPalette::paintEvent(QPaintEvent *)
{
    QPainter painter{this};
    PopupFrame::paint(painter, rect());
}

void CommandPalette::resizeEvent(QResizeEvent *event)
{
    QFrame::resizeEvent(event);
    setMask(PopupFrame::shape(rect()));
}
