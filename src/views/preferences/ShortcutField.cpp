#include "views/preferences/ShortcutField.h"

#include "model/settings/KWLocalizedString.h"
#include "views/controls/IconButton.h"
#include "views/theme/Metrics.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

constexpr int keysWidth = 170;

bool isModifier(int key)
{
    return key == 0 || key == Qt::Key_unknown || key == Qt::Key_AltGr || key == Qt::Key_CapsLock ||
           (key >= Qt::Key_Shift && key <= Qt::Key_Alt);
}

// A sign that is typed with Shift is itself the key: "Ctrl++", not "Ctrl+Shift++".
bool isSign(int key)
{
    return key < Qt::Key_Escape && QChar{char16_t(key)}.isPrint() &&
           !QChar{char16_t(key)}.isLetterOrNumber() && key != Qt::Key_Space;
}

QString strokeOf(const QKeyEvent &event)
{
    Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    if (isSign(event.key())) modifiers &= ~Qt::ShiftModifier;
    return QKeySequence{QKeyCombination{modifiers, Qt::Key(event.key())}}.toString(
        QKeySequence::PortableText);
}

QString nativeText(const QString &keys)
{
    return QKeySequence{keys, QKeySequence::PortableText}.toString(QKeySequence::NativeText);
}

} // namespace

ShortcutField::ShortcutField(const QString &command, QString defaultKeys)
    : m_defaultKeys(std::move(defaultKeys))
    , m_keys(new QLineEdit)
    , m_default(new IconButton{Icon::Restore, KWLocalizedString("Back to %1").arg(nativeText(m_defaultKeys))})
{
    m_keys->setReadOnly(true);
    m_keys->setAccessibleName(command);
    m_keys->setPlaceholderText(KWLocalizedString("None"));
    m_keys->setContextMenuPolicy(Qt::NoContextMenu);
    m_keys->setMinimumWidth(keysWidth); // large text scrolls in it where there is no more room
    m_keys->setMaximumWidth(Metrics::scaled(keysWidth));
    m_keys->installEventFilter(this);
    setFocusProxy(m_keys);

    m_default->setObjectName(u"defaultKeys"_s);
    QSizePolicy keepsPlace = m_default->sizePolicy();
    keepsPlace.setRetainSizeWhenHidden(true);
    m_default->setSizePolicy(keepsPlace);
    connect(m_default, &QAbstractButton::clicked, this, [this] {
        m_keys->setFocus(); // the button is about to hide
        Q_EMIT chosen(m_defaultKeys);
    });

    auto *row = new QHBoxLayout{this};
    row->setContentsMargins({});
    row->setSpacing(Metrics::grid);
    row->addWidget(m_default);
    row->addWidget(m_keys);
    setTabOrder(m_keys, m_default);
}

void ShortcutField::setKeys(const QString &keys)
{
    m_keys->setText(nativeText(keys));
    m_keys->setCursorPosition(0);
    m_default->setVisible(keys != m_defaultKeys);
}

bool ShortcutField::eventFilter(QObject *watched, QEvent *event)
{
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (!isKey) return QWidget::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    const bool isTab = key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab;
    if (key->key() == Qt::Key_Escape || (isTab && !(key->modifiers() & Qt::ControlModifier))) return false;
    event->accept();
    if (event->type() == QEvent::ShortcutOverride || isModifier(key->key())) return true;
    const bool clears = key->key() == Qt::Key_Backspace || key->key() == Qt::Key_Delete;
    Q_EMIT chosen(clears && key->modifiers() == Qt::NoModifier ? QString{} : strokeOf(*key));
    return true;
}
