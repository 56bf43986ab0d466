#include "views/taskdetail/AttachmentList.h"

#include "model/settings/KWLocalizedString.h"
#include "views/controls/RowButton.h"
#include "views/theme/Metrics.h"

#include <QContextMenuEvent>
#include <QLocale>
#include <QMenu>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

AttachmentList::AttachmentList(QWidget *parent) : QWidget(parent), m_layout(new QVBoxLayout{this})
{
    setObjectName(u"attachments"_s);
    setAccessibleName(KWLocalizedString("Attachments"));
    m_layout->setSpacing(0);
    dress();
}

void AttachmentList::dress()
{
    const int side = Metrics::sideMargin - RowButton::padding;
    m_layout->setContentsMargins(side, Metrics::grid, side, 0);
}

void AttachmentList::setAttachments(const QList<KWAttachmentModel> &attachments)
{
    if (attachments == m_attachments) return;
    const bool hadFocus = std::ranges::any_of(m_rows, &QWidget::hasFocus);
    for (RowButton *each : std::exchange(m_rows, {})) {
        each->hide();
        each->deleteLater();
    }
    m_attachments = attachments;
    for (const KWAttachmentModel &each : attachments) {
        m_rows.append(makeRow(each));
        m_layout->addWidget(m_rows.last());
    }
    if (hadFocus && !m_rows.isEmpty()) m_rows.last()->setFocus();
    setVisible(!attachments.isEmpty());
}

RowButton *AttachmentList::makeRow(const KWAttachmentModel &attachment)
{
    auto *row = new RowButton{this};
    row->setObjectName(u"attachment"_s);
    const QString size = QLocale{}.formattedDataSize(attachment.size, 1, QLocale::DataSizeSIFormat);
    row->setContent({.text = attachment.fileName, .note = size, .icon = Icon::Attachment});
    row->setAccessibleName(KWLocalizedString("Attachment: %1, %2").arg(attachment.fileName, size));
    row->installEventFilter(this);
    connect(row, &QAbstractButton::clicked, this, [this, id = attachment.sid] { Q_EMIT opened(id); });
    return row;
}

const KWAttachmentModel *AttachmentList::attachmentOf(const QObject *row) const
{
    for (qsizetype i = 0; i < m_rows.size(); ++i)
        if (m_rows.at(i) == row) return &m_attachments.at(i);
    return nullptr;
}

bool AttachmentList::eventFilter(QObject *watched, QEvent *event)
{
    const KWAttachmentModel *attachment = attachmentOf(watched);
    if (attachment && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent *>(event)->key() == Qt::Key_Delete) {
        Q_EMIT removed(QString{attachment->sid});
        return true;
    }
    if (attachment && event->type() == QEvent::ContextMenu) {
        openMenu(*static_cast<RowButton *>(watched), static_cast<QContextMenuEvent *>(event)->globalPos());
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void AttachmentList::openMenu(RowButton &row, const QPoint &position)
{
    const KWAttachmentModel attachment = *attachmentOf(&row);
    auto *menu = new QMenu{this};
    menu->setAttribute(Qt::WA_DeleteOnClose);
    connect(menu->addAction(KWLocalizedString("Open")), &QAction::triggered, this,
            [this, attachment] { Q_EMIT opened(attachment.sid); });
    connect(menu->addAction(KWLocalizedString("Save As…")), &QAction::triggered, this,
            [this, attachment] { Q_EMIT savingRequested(attachment.sid, attachment.fileName); });
    connect(menu->addAction(KWLocalizedString("Remove")), &QAction::triggered, this,
            [this, attachment] { Q_EMIT removed(attachment.sid); });
    menu->popup(position);
}
