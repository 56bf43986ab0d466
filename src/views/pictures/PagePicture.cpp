#include "views/pictures/PagePicture.h"

#include "model/OrvaneKit.h"
#include "model/records/KWCalSubscription.h"
#include "model/records/KWFilter.h"
#include "model/records/KWProject.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTag.h"
#include "views/preferences/PreferencesWindowController.h"
#include "views/theme/Theme.h"

#include <QApplication>
#include <QFileInfo>
#include <QPainter>
#include <QPixmap>
#include <QWidget>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int smallestSide = 200;
constexpr int largestSide = 8000;
constexpr int smallestTextSize = 100; // percent
constexpr int largestTextSize = 300;

QString pictureText(const char *text) { return QCoreApplication::translate("CommandLine", text); }

const KWSmartProject *smartProjectOfPage(const QString &page)
{
    const std::pair<QLatin1StringView, const KWSmartProject &> pages[] = {
        {"today"_L1, KWSmartProject::today()},           {"tomorrow"_L1, KWSmartProject::tomorrow()},
        {"next7days"_L1, KWSmartProject::next7days()},   {"all"_L1, KWSmartProject::all()},
        {"assigned"_L1, KWSmartProject::assignedToMe()}, {"completed"_L1, KWSmartProject::completed()},
        {"abandoned"_L1, KWSmartProject::abandoned()},   {"trash"_L1, KWSmartProject::trash()},
        {"summary"_L1, KWSmartProject::summary()},
    };
    for (const auto &[name, smart] : pages)
        if (name == page) return &smart;
    return nullptr;
}

std::optional<KWListIdentifier> listOfPage(const QString &page, const QString &name, OrvaneKit &kit)
{
    const QString user = kit.account().currentUserID();
    if (page == u"inbox") return KWListIdentifier::project(KWProject::inboxIDOfUser(user));
    if (const KWSmartProject *smart = smartProjectOfPage(page))
        return KWListIdentifier::smartProject(smart->identifier());
    if (page == u"list")
        if (const KWProject *project = KWProject::findProjectNamed(name, user, kit.context()))
            return KWListIdentifier::project(project->sid());
    if (page == u"tag")
        if (const KWTag *tag = KWTag::findTagNamed(name, user, kit.context()))
            return KWListIdentifier::tag(tag->model().name);
    if (page == u"calendar")
        for (const KWCalSubscription *each : KWCalSubscription::findSubscriptionsOfUser(user, kit.context()))
            if ((*each)->name == name) return KWListIdentifier::calendar(each->sid());
    return std::nullopt;
}

// "calendar-week", "calendar-month:more", …
std::optional<PicturePage> calendarOfPage(const QString &page, const QString &state)
{
    using enum CalendarPage::Kind;
    using State = PicturePage::CalendarState;
    const std::pair<QLatin1StringView, CalendarPage::Kind> kinds[] = {
        {"calendar-day"_L1, SingleDay}, {"calendar-week"_L1, Week}, {"calendar-month"_L1, Month}};
    const std::pair<QLatin1StringView, State> states[] = {{""_L1, State::Usual},
                                                          {"crowded"_L1, State::Crowded},
                                                          {"shown"_L1, State::Shown},
                                                          {"more"_L1, State::More},
                                                          {"tray"_L1, State::Tray}};
    const auto kind = std::ranges::find(kinds, page, [](const auto &each) { return each.first; });
    const auto what = std::ranges::find(states, state, [](const auto &each) { return each.first; });
    if (kind == std::end(kinds) || what == std::end(states)) return std::nullopt;
    return PicturePage{.kind = PicturePage::Kind::Calendar, .days = kind->second, .state = what->second};
}

QString filterNamed(const QString &name, OrvaneKit &kit)
{
    const auto filters = KWFilter::findFiltersOfUser(kit.account().currentUserID(), kit.context());
    const auto found = std::ranges::find(filters, name, [](const KWFilter *each) { return (*each)->name; });
    return found == filters.end() ? QString{} : (*found)->sid();
}

} // namespace

Result<PictureRequest> PictureRequest::read(const Words &words)
{
    PictureRequest request{.file = words.file};
    if (const QString suffix = QFileInfo{words.file}.suffix();
        !suffix.isEmpty() && suffix.toLower() != u"png")
        return Error{
            pictureText("“%1”: pictures are PNG files; give a name that ends in .png.").arg(words.file)};
    if (!words.page.isEmpty()) request.page = words.page;
    if (!words.size.isEmpty()) {
        const qsizetype cross = words.size.indexOf(u'x');
        request.size = {words.size.left(cross).toInt(), words.size.mid(cross + 1).toInt()};
        const auto fits = [](int side) { return side >= smallestSide && side <= largestSide; };
        if (cross < 0 || !fits(request.size.width()) || !fits(request.size.height()))
            return Error{pictureText("“%1” is no size such as 1280x800, from %2 to %3 a side.")
                             .arg(words.size)
                             .arg(smallestSide)
                             .arg(largestSide)};
    }
    if (!words.scale.isEmpty()) {
        request.scale = words.scale.toDouble();
        if (!(request.scale >= 0.5 && request.scale <= 4))
            return Error{pictureText("“%1” is no scale from 0.5 to 4.").arg(words.scale)};
    }
    if (!words.textSize.isEmpty()) {
        const int percent = words.textSize.toInt();
        if (percent < smallestTextSize || percent > largestTextSize)
            return Error{pictureText("“%1” is no text size from %2 to %3, in percent.")
                             .arg(words.textSize)
                             .arg(smallestTextSize)
                             .arg(largestTextSize)};
        request.textScale = percent / 100.0;
    }
    return request;
}

Result<PicturePage> PicturePage::read(const QString &page, OrvaneKit &kit)
{
    const QString name = page.section(u':', 0, 0);
    const QString text = page.section(u':', 1);
    if (page == u"welcome") return PicturePage{.kind = Kind::Welcome};
    if (page == u"detail") return PicturePage{.kind = Kind::Detail};
    if (name == u"focus")
        return PicturePage{.kind = Kind::Focus,
                           .list = KWListIdentifier::smartProject(KWSmartProject::focus().identifier()),
                           .text = text};
    for (const auto &[habits, kind] : {std::pair{u"habits"_s, Kind::Habits},
                                       {u"habit-detail"_s, Kind::HabitDetail},
                                       {u"habit-day"_s, Kind::HabitDay},
                                       {u"edit-habit"_s, Kind::HabitEditor}})
        if (page == habits)
            return PicturePage{.kind = kind,
                               .list = KWListIdentifier::smartProject(KWSmartProject::habit().identifier())};
    if (page == u"schedule") return PicturePage{.kind = Kind::Schedule};
    if (const auto calendar = calendarOfPage(name, text)) return *calendar;
    if (name == u"search") return PicturePage{.kind = Kind::Search, .text = text};
    if (name == u"palette") return PicturePage{.kind = Kind::Palette, .text = text};
    if (name == u"quick-add") return PicturePage{.kind = Kind::QuickAdd, .text = text};
    if (name == u"preferences" && PreferencesWindowController::hasPage(text))
        return PicturePage{.kind = Kind::Preferences, .text = text};
    if (const auto list = listOfPage(name, text, kit)) return PicturePage{.list = *list};
    if (name == u"filter" || name == u"edit-filter")
        if (const QString filter = filterNamed(text, kit); !filter.isEmpty())
            return PicturePage{.kind = name == u"filter" ? Kind::List : Kind::FilterEditor,
                               .list = KWListIdentifier::filter(filter),
                               .text = filter};
    return Error{pictureText("There is no page “%1”.").arg(page)};
}

Result<void> savePicture(QWidget &window, const QString &file)
{
    QPixmap picture = window.grab();
    QPainter painter{&picture};
    for (QWidget *each : QApplication::topLevelWidgets()) {
        if (each == &window || !each->isVisible()) continue;
        const QRect place{window.mapFromGlobal(each->mapToGlobal(QPoint{})), each->size()};
        each->render(&painter, place.topLeft(), {}, QWidget::DrawWindowBackground | QWidget::DrawChildren);
        if (each->windowType() == Qt::Popup || each->windowFlags() & Qt::FramelessWindowHint) continue;
        // The desktop would put its frame around a window.
        painter.setPen(Theme::current().popupEdge);
        painter.drawRect(place.adjusted(-1, -1, 0, 0));
    }
    painter.end();
    if (picture.save(file, "PNG")) return {};
    return Error{pictureText("The picture “%1” cannot be written.").arg(file)};
}
