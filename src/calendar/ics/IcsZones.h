#pragma once

#include "corvexkit/time/CXTimeZone.h"

#include <QByteArray>
#include <QHash>

#include <vector>

/// The zones of a calendar by the names that it gives them. Any thread, each object on one.
class IcsZones {
public:
    /// That many names are looked up, as zones are kept for the life of the process.
    static constexpr int mostNames = 200;

    /// From its VTIMEZONE components.
    explicit IcsZones(const std::vector<QByteArray> &components);

    /// By an identifier of the IANA database, alone or at the end of a path; by a name that Windows has for a
    /// zone; else by what the calendar says of it: the place that it names, or its present offsets. Nothing
    /// for a name that nobody knows.
    std::optional<CXTimeZone> zone(const QString &name) const;

private:
    QHash<QString, CXTimeZone> m_described;
    mutable QHash<QString, std::optional<CXTimeZone>> m_known;
};
