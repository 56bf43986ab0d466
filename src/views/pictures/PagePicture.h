#pragma once

#include "calendar/CalendarPage.h"
#include "corvexkit/Result.h"
#include "model/records/KWListIdentifier.h"

#include <QSize>
#include <QString>

class OrvaneKit;
class QWidget;

/// What a picture shows, as asked for on the command line.
struct PictureRequest {
    /// As it was typed; what is empty is as usual.
    struct Words {
        QString file;
        QString page;
        QString size;
        QString scale;
        QString textSize;
    };
    /// Reads "1280x800", "2" and "200"; an error names what is wrong.
    static Result<PictureRequest> read(const Words &words);

    QString file;
    QString page = QStringLiteral("today");
    QSize size{1280, 800};
    double scale = 1;
    double textScale = 1;
};

/// A page that a picture shows.
struct PicturePage {
    enum class Kind {
        Welcome,
        List,
        Detail,
        Search,
        Palette,
        Schedule,
        FilterEditor,
        QuickAdd,
        Preferences,
        Calendar,
        Habits,
        HabitDetail,
        HabitDay,
        HabitEditor,
        Focus
    };

    Kind kind = Kind::List;
    KWListIdentifier list =
        KWListIdentifier::todayProject();               ///< in the middle, also behind what stands over it
    CalendarPage::Kind days = CalendarPage::Kind::Week; ///< of the calendar
    enum class CalendarState { Usual, Crowded, Shown, More, Tray } state = CalendarState::Usual;
    QString text{}; ///< what is typed, the id of the filter, the page of the preferences

    /// Reads "today", "list:NAME", "search:TEXT", …; an error says that there is no such page.
    static Result<PicturePage> read(const QString &page, OrvaneKit &kit);
};

/// Draws the window, once it is complete, with what stands over it, into the file.
Result<void> savePicture(QWidget &window, const QString &file);
