#pragma once

#include "model/records/KWAttachmentModel.h"

#include <QWidget>

class RowButton;
class QVBoxLayout;

/// The files attached to a task, with their sizes. Enter and a click open one, Delete removes it, and its
/// menu does both and saves it elsewhere.
class AttachmentList : public QWidget {
    Q_OBJECT

public:
    explicit AttachmentList(QWidget *parent = nullptr);

    void setAttachments(const QList<KWAttachmentModel> &attachments);
    void dress();

Q_SIGNALS:
    void opened(const QString &attachmentID);
    void removed(const QString &attachmentID);
    void savingRequested(const QString &attachmentID, const QString &fileName);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    RowButton *makeRow(const KWAttachmentModel &attachment);
    void openMenu(RowButton &row, const QPoint &position);
    const KWAttachmentModel *attachmentOf(const QObject *row) const;

    QVBoxLayout *m_layout;
    QList<KWAttachmentModel> m_attachments;
    QList<RowButton *> m_rows; // in their order
};
