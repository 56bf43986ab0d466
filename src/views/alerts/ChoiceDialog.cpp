#include "views/alerts/ChoiceDialog.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int textWidth = 380;

QLabel *addText(const QString &text, const QString &name, QVBoxLayout &layout)
{
    auto *label = new QLabel{text};
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setFixedWidth(textWidth);
    layout.addWidget(label);
    return label;
}

} // namespace

ChoiceDialog::ChoiceDialog(const QString &title, const QString &text, QWidget *parent)
    : QDialog(parent), m_layout(new QVBoxLayout{this})
{
    setObjectName(u"choiceDialog"_s);
    setAttribute(Qt::WA_QuitOnClose, false); // as every alert
    setWindowTitle(u"Orvane"_s);
    setAccessibleName(title);
    m_layout->setSizeConstraint(QLayout::SetFixedSize);
    QLabel *head = addText(title, u"choiceTitle"_s, *m_layout);
    QFont font = head->font();
    font.setBold(true);
    head->setFont(font);
    addText(text, u"choiceText"_s, *m_layout);
}

void ChoiceDialog::addChoice(int number, const QString &text)
{
    auto *button = new QPushButton{text};
    button->setObjectName(u"choice%1"_s.arg(number));
    button->setAccessibleName(text);
    button->setDefault(findChildren<QPushButton *>().isEmpty());
    connect(button, &QPushButton::clicked, this, [this, number] {
        m_chosen = number;
        accept();
    });
    m_layout->addWidget(button);
    m_last = number;
}

int ChoiceDialog::choose()
{
    m_chosen = m_last;
    exec();
    return m_chosen;
}
