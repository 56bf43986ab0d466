#include "views/pictures/PagePicture.h"

#include "model/OrvaneKit.h"
#include "model/records/KWProject.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTag.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QPixmap>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

constexpr int smallestSide = 200;
constexpr int largestSide = 8000;

QString pictureText(const char *text) { return QCoreApplication::translate("CommandLine", text); }

const KWSmartProject *smartProjectOfPage(const QString &page)
{
    const std::pair<QLatin1StringView, const KWSmartProject &> pages[] = {
        {"today"_L1, KWSmartProject::today()},           {"tomorrow"_L1, KWSmartProject::tomorrow()},
        {"next7days"_L1, KWSmartProject::next7days()},   {"all"_L1, KWSmartProject::all()},
        {"assigned"_L1, KWSmartProject::assignedToMe()}, {"completed"_L1, KWSmartProject::completed()},
        {"abandoned"_L1, KWSmartProject::abandoned()},   {"trash"_L1, KWSmartProject::trash()},
    };
    for (const auto &[name, smart] : pages)
        if (name == page) return &smart;
    return nullptr;
}

} // namespace

Result<PictureRequest> pictureRequest(const QString &file, const QString &page, const QString &size,
                                      const QString &scale)
{
    PictureRequest request{.file = file};
    if (const QString suffix = QFileInfo{file}.suffix(); !suffix.isEmpty() && suffix.toLower() != u"png")
        return Error{pictureText("“%1”: pictures are PNG files; give a name that ends in .png.").arg(file)};
    if (!page.isEmpty()) request.page = page;
    if (!size.isEmpty()) {
        const qsizetype cross = size.indexOf(u'x');
        request.size = {size.left(cross).toInt(), size.mid(cross + 1).toInt()};
        const auto fits = [](int side) { return side >= smallestSide && side <= largestSide; };
        if (cross < 0 || !fits(request.size.width()) || !fits(request.size.height()))
            return Error{pictureText("“%1” is no size such as 1280x800, from %2 to %3 a side.")
                             .arg(size)
                             .arg(smallestSide)
                             .arg(largestSide)};
    }
    if (!scale.isEmpty()) {
        request.scale = scale.toDouble();
        if (!(request.scale >= 0.5 && request.scale <= 4))
            return Error{pictureText("“%1” is no scale from 0.5 to 4.").arg(scale)};
    }
    return request;
}

Result<std::optional<KWListIdentifier>> listOfPage(const QString &page, OrvaneKit &kit)
{
    const QString user = kit.account().currentUserID();
    if (page == u"welcome") return std::optional<KWListIdentifier>{};
    if (page == u"inbox") return std::optional{KWListIdentifier::project(KWProject::inboxIDOfUser(user))};
    if (const KWSmartProject *smart = smartProjectOfPage(page))
        return std::optional{KWListIdentifier::smartProject(smart->identifier())};
    const QString name = page.section(u':', 1);
    if (page.startsWith(u"list:"))
        if (const KWProject *project = KWProject::findProjectNamed(name, user, kit.context()))
            return std::optional{KWListIdentifier::project(project->sid())};
    if (page.startsWith(u"tag:"))
        if (const KWTag *tag = KWTag::findTagNamed(name, user, kit.context()))
            return std::optional{KWListIdentifier::tag(tag->model().name)};
    return Error{pictureText("There is no page “%1”.").arg(page)};
}

Result<void> savePicture(QWidget &window, const QString &file)
{
    if (window.grab().save(file, "PNG")) return {};
    return Error{pictureText("The picture “%1” cannot be written.").arg(file)};
}
