#include "views/alerts/Alert.h"

#include "views/theme/Icons.h"

#include <QMessageBox>
#include <QPushButton>

using namespace Qt::StringLiterals;

int Alert::run(const AlertText &alert, QWidget *parent)
{
    QMessageBox box{QMessageBox::NoIcon, u"Orvane"_s, alert.message, QMessageBox::NoButton, parent};
    box.setObjectName(u"alert"_s);
    box.setAccessibleName(alert.message);
    box.setAttribute(Qt::WA_QuitOnClose, false); // the program may run in the background
    box.setIconPixmap(Icons::application(48, box.devicePixelRatioF()));
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(alert.text);

    QList<QAbstractButton *> buttons;
    for (const QString &text : alert.buttons) {
        QPushButton *button = box.addButton(text, QMessageBox::ActionRole);
        button->setObjectName(u"alertButton%1"_s.arg(buttons.size()));
        button->setAccessibleName(text);
        if (buttons.size() == alert.defaultButton) box.setDefaultButton(button);
        box.setEscapeButton(button);
        buttons.append(button);
    }
    box.exec();
    const qsizetype chosen = buttons.indexOf(box.clickedButton());
    return int(chosen < 0 ? buttons.size() - 1 : chosen);
}
