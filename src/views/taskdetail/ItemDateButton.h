#pragma once

#include "views/controls/PaintedButton.h"
#include "views/tasklist/TaskDateText.h"

/// The date of a checklist item in the words of a row of a list. An item without one shows a calendar while
/// it is offered a date, else nothing. Pressing it asks for another date.
class ItemDateButton : public PaintedButton {
    Q_OBJECT

public:
    static constexpr int padding = 6; ///< on both sides of the words

    explicit ItemDateButton(QWidget *parent = nullptr);

    /// `title`: of the item, for screen readers.
    void setDate(const TaskDateText &date, const QString &title);
    bool hasDate() const { return !m_date.text.isEmpty(); }
    void setOffersDate(bool offersDate);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintContent(QPainter &painter) override;

private:
    TaskDateText m_date;
    bool m_offersDate = false;
};
