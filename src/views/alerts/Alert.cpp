#include "views/alerts/Alert.h"

#include "views/theme/Icons.h"

#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

int escapeButtonOf(const AlertText &alert)
{
    return alert.escapeButton < 0 ? int(alert.buttons.size()) - 1 : alert.escapeButton;
}

class AlertBox : public QMessageBox {
public:
    AlertBox(const AlertText &alert, QWidget *parent)
        : QMessageBox(NoIcon, u"Orvane"_s, alert.message, NoButton, parent)
    {
        setObjectName(u"alert"_s);
        setAccessibleName(alert.message);
        setAttribute(Qt::WA_QuitOnClose, false); // the program may run in the background
        setIconPixmap(Icons::application(48, devicePixelRatioF()));
        setTextFormat(Qt::PlainText);
        setInformativeText(alert.text);
        for (const QString &text : alert.buttons) {
            QPushButton *button = addButton(text, ActionRole);
            button->setObjectName(u"alertButton%1"_s.arg(m_buttons.size()));
            button->setAccessibleName(text);
            if (m_buttons.size() == alert.defaultButton) setDefaultButton(button);
            m_buttons.append(button);
        }
        m_escape = escapeButtonOf(alert);
        setEscapeButton(m_buttons.value(m_escape));
    }

    int chosen() const
    {
        const qsizetype place = m_buttons.indexOf(clickedButton());
        return place < 0 ? m_escape : int(place);
    }

private:
    int m_escape = 0;
    QList<QAbstractButton *> m_buttons;
};

} // namespace

int Alert::run(const AlertText &alert, QWidget *parent)
{
    const QPointer box = new AlertBox{alert, parent};
    box->exec();
    if (!box) return escapeButtonOf(alert); // it went with its parent
    const int chosen = box->chosen();
    delete box;
    return chosen;
}

QWidget *Alert::open(const AlertText &alert, QWidget *window, std::function<void(int)> answered)
{
    auto *box = new AlertBox{alert, window};
    box->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(box, &QDialog::finished, box,
                     [box, answered = std::move(answered)] { answered(box->chosen()); });
    box->open();
    return box;
}
