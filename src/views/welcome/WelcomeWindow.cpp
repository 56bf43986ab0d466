#include "views/welcome/WelcomeWindow.h"

#include "model/settings/KWLocalizedString.h"
#include "views/theme/Fonts.h"
#include "views/theme/Icons.h"
#include "views/theme/Metrics.h"
#include "views/theme/Theme.h"
#include "views/theme/ThemeConfigurator.h"

#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int iconSide = 72;

QLabel *makeLabel(QWidget *parent, const QString &objectName, const QString &text)
{
    auto *label = new QLabel{text, parent};
    label->setObjectName(objectName);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    return label;
}

void setTextColor(QWidget &widget, const QColor &color)
{
    QPalette palette = widget.palette();
    palette.setColor(QPalette::WindowText, color);
    widget.setPalette(palette);
}

} // namespace

WelcomeWindow::WelcomeWindow(QWidget *parent) : QWidget(parent), m_pages(new QStackedWidget{this})
{
    setObjectName(u"welcomeWindow"_s);
    setWindowTitle(u"Orvane"_s);
    setMinimumSize(Metrics::windowMinimumWidth, Metrics::windowMinimumHeight);
    resize(860, 600);
    auto *layout = new QVBoxLayout{this};
    layout->setContentsMargins({});
    layout->addWidget(m_pages);
    addPage(makeStartPage());
    connect(&ThemeConfigurator::shared(), &ThemeConfigurator::themeChanged, this, &WelcomeWindow::dress);
    dress();
    m_useHere->setFocus();
}

QWidget *WelcomeWindow::makeStartPage()
{
    auto *page = new QWidget{this};
    m_icon = makeLabel(page, u"welcomeIcon"_s, {});
    m_icon->setAccessibleName(u"Orvane"_s);
    m_name = makeLabel(page, u"welcomeName"_s, u"Orvane"_s);
    m_sentence = makeLabel(page, u"welcomeSentence"_s,
                           KWLocalizedString("Write down what is to be done, and see it when it is due."));
    m_problem = makeLabel(page, u"welcomeProblem"_s, {});
    m_problem->hide();
    m_useHere = new QPushButton{KWLocalizedString("Use on this computer"), page};
    m_useHere->setObjectName(u"useOnThisComputer"_s);
    m_useHere->setAccessibleName(m_useHere->text());
    m_useHere->setDefault(true);
    m_useHere->setAutoDefault(true);
    connect(m_useHere, &QPushButton::clicked, this, &WelcomeWindow::localAccountRequested);

    auto *layout = new QVBoxLayout{page};
    layout->setContentsMargins(Metrics::margin, Metrics::margin, Metrics::margin, Metrics::margin);
    layout->setSpacing(Metrics::gap);
    layout->addStretch(2);
    layout->addWidget(m_icon);
    layout->addWidget(m_name);
    layout->addWidget(m_sentence);
    layout->addSpacing(Metrics::gap);
    layout->addWidget(m_useHere, 0, Qt::AlignHCenter);
    layout->addWidget(m_problem);
    layout->addStretch(3);
    return page;
}

void WelcomeWindow::dress()
{
    const Theme &theme = Theme::current();
    m_icon->setPixmap(Icons::application(iconSide, devicePixelRatioF()));
    m_name->setFont(Fonts::font(Fonts::Role::PageTitle));
    m_sentence->setFont(Fonts::font(Fonts::Role::Body));
    setTextColor(*m_sentence, theme.secondaryText);
    setTextColor(*m_problem, theme.overdueText);
    m_useHere->setFont(Fonts::font(Fonts::Role::BodyStrong));
    m_useHere->setMinimumSize(Metrics::scaled(220), Metrics::scaled(Metrics::taskRow));
}

void WelcomeWindow::addPage(QWidget *page) { m_pages->addWidget(page); }

void WelcomeWindow::showLastPage() { m_pages->setCurrentIndex(m_pages->count() - 1); }

void WelcomeWindow::showProblem(const QString &problem)
{
    m_problem->setText(problem);
    m_problem->setVisible(!problem.isEmpty());
}
