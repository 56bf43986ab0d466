#include "views/taskdetail/TagField.h"

#include "model/settings/KWLocalizedString.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Theme.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QStringListModel>

using namespace Qt::StringLiterals;

namespace {

constexpr int tagFieldWidth = 64;
constexpr int tagFieldHeight = 24;
constexpr int tagFieldPadding = 4;

} // namespace

TagField::TagField(QWidget *parent) : QLineEdit(parent), m_choices(new QStringListModel{this})
{
    setObjectName(u"addTag"_s);
    setFrame(false);
    setPlaceholderText(KWLocalizedString("Add tag"));
    setAccessibleName(KWLocalizedString("Add a tag"));
    auto *completer = new QCompleter{m_choices, this};
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    completer->setFilterMode(Qt::MatchContains);
    setCompleter(completer);
    connect(completer, qOverload<const QString &>(&QCompleter::activated), this, &TagField::handOver,
            Qt::QueuedConnection);
    connect(this, &QLineEdit::editingFinished, this, &TagField::handOver);
    dress();
}

void TagField::setChoices(const QStringList &labels)
{
    if (m_choices->stringList() != labels) m_choices->setStringList(labels);
}

void TagField::dress()
{
    setFont(Fonts::font(Fonts::Role::Secondary));
    QPalette colors = palette();
    colors.setColor(QPalette::Base, Qt::transparent);
    colors.setColor(QPalette::PlaceholderText, Theme::current().faintText);
    setPalette(colors);
    setTextMargins(tagFieldPadding, 0, 0, 0);
    updateGeometry();
}

QSize TagField::sizeHint() const { return {Metrics::scaled(tagFieldWidth), Metrics::scaled(tagFieldHeight)}; }

void TagField::handOver()
{
    QString label = text().trimmed();
    if (label.startsWith(u'#')) label.remove(0, 1);
    if (label.isEmpty() || completer()->popup()->isVisible()) return;
    Q_EMIT entered(label);
}

void TagField::keyPressEvent(QKeyEvent *event)
{
    const bool parts = event->text() == u","_s || event->text() == u" "_s;
    const bool enters = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    QAbstractItemView *completions = completer()->popup();
    // With nothing chosen among the completions Enter takes what is typed.
    const bool entersTyped = enters && completions->isVisible() && !completions->currentIndex().isValid();
    if (parts || entersTyped) {
        completions->hide();
        return handOver();
    }
    if (event->key() == Qt::Key_Escape && !text().isEmpty())
        clear();
    else if (event->key() == Qt::Key_Escape)
        event->ignore();
    else if (event->key() == Qt::Key_Backspace && text().isEmpty())
        Q_EMIT backspacedAtStart();
    else
        QLineEdit::keyPressEvent(event);
}
