#include "views/about/AboutWindow.h"

#include "app/ApplicationName.h"
#include "model/settings/KWLocalizedString.h"
#include "views/controls/PlainLabel.h"
#include "views/theme/Icons.h"
#include "views/theme/Metrics.h"

#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int aboutIconSide = 64;
constexpr int aboutWidth = 340;

QLabel *aboutLine(const QString &text, Fonts::Role role, QPalette::ColorRole color = QPalette::WindowText)
{
    QLabel *label = makePlainLabel(text, role, color);
    label->setAlignment(Qt::AlignCenter);
    return label;
}

} // namespace

AboutWindow::AboutWindow(QWidget *parent) : QDialog(parent)
{
    setObjectName(u"aboutWindow"_s);
    setWindowTitle(textWithApplicationName("About %@"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto *icon = new QLabel;
    icon->setAlignment(Qt::AlignCenter);
    icon->setPixmap(Icons::application(Metrics::scaled(aboutIconSide), devicePixelRatioF()));
    QLabel *version = aboutLine(KWLocalizedString("Version %1").arg(QCoreApplication::applicationVersion()),
                                Fonts::Role::Body, QPalette::PlaceholderText);
    version->setObjectName(u"aboutVersion"_s);
    version->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    auto *close = new QPushButton{KWLocalizedString("Close")};
    close->setObjectName(u"aboutClose"_s);
    close->setAccessibleName(close->text());
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QDialog::close);

    auto *column = new QVBoxLayout{this};
    column->setContentsMargins(Metrics::margin, Metrics::margin, Metrics::margin, Metrics::margin);
    column->setSpacing(Metrics::grid * 2);
    column->addWidget(icon);
    column->addWidget(aboutLine(localizedApplicationName(), Fonts::Role::PageTitle));
    column->addWidget(version);
    column->addWidget(
        aboutLine(KWLocalizedString("Plan your tasks, alone or in a team."), Fonts::Role::Body));
    column->addWidget(
        aboutLine(KWLocalizedString("Made with Qt %1 and SQLite.").arg(QLatin1StringView{qVersion()}),
                  Fonts::Role::Secondary, QPalette::PlaceholderText));
    column->addSpacing(Metrics::gap);
    column->addWidget(close, 0, Qt::AlignHCenter);
    setMinimumWidth(Metrics::scaled(aboutWidth));
    close->setFocus();
}
