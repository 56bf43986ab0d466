#include "calendar/ics/IcsComponent.h"

#include <array>

namespace {

// A broken file is no reason to end the program.
void makeErrorsHarmless()
{
    static const bool once = [] {
        icalerror_set_errors_are_fatal(0);
        for (const icalerrorenum each :
             {ICAL_BADARG_ERROR, ICAL_NEWFAILED_ERROR, ICAL_ALLOCATION_ERROR, ICAL_MALFORMEDDATA_ERROR,
              ICAL_PARSE_ERROR, ICAL_INTERNAL_ERROR, ICAL_FILE_ERROR, ICAL_USAGE_ERROR, ICAL_UNKNOWN_ERROR})
            icalerror_set_error_state(each, ICAL_ERROR_NONFATAL);
        return true;
    }();
    static_cast<void>(once);
}

} // namespace

std::optional<IcsComponent> IcsComponent::parse(const QByteArray &text)
{
    makeErrorsHarmless();
    icalcomponent *component = icalparser_parse_string(text.constData());
    if (!component) return std::nullopt;
    return IcsComponent{component};
}

std::optional<QString> icsText(icalproperty &property)
{
    const icalvalue *value = icalproperty_get_value(&property);
    switch (icalvalue_isa(value)) {
    case ICAL_TEXT_VALUE:
        return QString::fromUtf8(icalvalue_get_text(value));
    case ICAL_X_VALUE:
        return QString::fromUtf8(icalvalue_get_x(value));
    default:
        return std::nullopt;
    }
}

QString icsZoneName(icalproperty &property)
{
    const icalparameter *parameter = icalproperty_get_first_parameter(&property, ICAL_TZID_PARAMETER);
    return parameter ? QString::fromUtf8(icalparameter_get_tzid(parameter)) : QString{};
}
