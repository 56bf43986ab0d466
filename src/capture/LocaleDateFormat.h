#pragma once

#include <QLocale>

#include <string>

/// How a locale writes dates and times, as far as it changes how they are read.
struct LocaleDateFormat {
    bool isUSOrUK = true; ///< the day stands before the month, or the month is a word
    bool is24Hour = true;
    std::wstring languageCode; ///< ISO 639, such as "en"

    static LocaleDateFormat of(const QLocale &locale);
    /// Of the default locale; worked out again only when that is another one. Main thread only.
    static const LocaleDateFormat &current();
};
