#include "views/datepicker/ZoneButton.h"

#include "model/settings/KWLocalizedString.h"
#include "views/controls/ChoicePopup.h"

#include <QTimeZone>

using namespace Qt::StringLiterals;

namespace {

// As people write it and look for it: "America/New York".
QString nameOf(const QString &identifier)
{
    if (identifier.isEmpty()) return KWLocalizedString("The clock on the wall, wherever I am");
    return QString{identifier}.replace(u'_', u' ');
}

} // namespace

ZoneButton::ZoneButton(QWidget *parent) : TextButton({}, Opens::Menu, parent)
{
    setObjectName(u"zone"_s);
    setZone({});
    connect(this, &QAbstractButton::clicked, this, &ZoneButton::ask);
}

void ZoneButton::setZone(const std::optional<CXTimeZone> &zone)
{
    m_identifier = zone ? zone->identifier() : QString{};
    setText(nameOf(m_identifier));
    setAccessibleName(KWLocalizedString("Time zone: %1").arg(text()));
    updateGeometry();
}

void ZoneButton::ask()
{
    QStringList identifiers{QString{}};
    for (const QByteArray &each : QTimeZone::availableTimeZoneIds())
        identifiers.append(QString::fromLatin1(each));
    QList<ChoicePopup::Choice> zones;
    for (const QString &each : identifiers)
        zones.append({.id = each, .title = nameOf(each), .isChecked = each == m_identifier});
    auto *popup = new ChoicePopup{KWLocalizedString("Find a time zone"), zones, this};
    connect(popup, &ChoicePopup::chosen, this, [this](const QString &identifier) {
        const std::optional<CXTimeZone> zone = CXTimeZone::named(identifier);
        setZone(zone);
        Q_EMIT zoneChosen(zone);
    });
    popup->popUp(mapToGlobal(QPoint{0, height()}));
}
