#pragma once

#include <QByteArray>
#include <QString>

#include <libical/ical.h>

#include <memory>
#include <optional>

/// A component as libical reads it, and what is asked of its properties. A value of another kind than the
/// property's reads as nothing. Any thread, each component on one.
class IcsComponent {
public:
    /// Nothing where the text holds none.
    static std::optional<IcsComponent> parse(const QByteArray &text);

    icalcomponent *get() const { return m_component.get(); }

    template <class Visitor>
    void forEachProperty(Visitor &&visit) const
    {
        for (icalproperty *each = icalcomponent_get_first_property(get(), ICAL_ANY_PROPERTY); each;
             each = icalcomponent_get_next_property(get(), ICAL_ANY_PROPERTY))
            if (icalproperty_get_value(each)) visit(*each);
    }

private:
    struct Free {
        void operator()(icalcomponent *component) const { icalcomponent_free(component); }
    };
    explicit IcsComponent(icalcomponent *component) : m_component(component) {}

    std::unique_ptr<icalcomponent, Free> m_component;
};

/// A text, unescaped.
std::optional<QString> icsText(icalproperty &property);
/// The identifier that TZID gives; empty for none.
QString icsZoneName(icalproperty &property);
