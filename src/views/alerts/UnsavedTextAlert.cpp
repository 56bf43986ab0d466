#include "views/alerts/UnsavedTextAlert.h"

#include "model/records/OneLine.h"
#include "model/settings/KWLocalizedString.h"
#include "model/text/ShortenedText.h"
#include "views/alerts/Alert.h"
#include "views/controls/UnsavedTexts.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype mostShown = 5;
constexpr int mostOfEach = 60;

QString listed(const QStringList &texts)
{
    QStringList lines;
    for (const QString &each : texts.first(std::min(texts.size(), mostShown)))
        lines.append(u"“%1”"_s.arg(shortened(onOneLine(each), mostOfEach)));
    if (texts.size() > mostShown)
        lines.append(KWLocalizedString("and %1 more").arg(texts.size() - mostShown));
    return lines.join(u'\n');
}

} // namespace

bool mayLoseUnsavedTexts(const QString &goOn)
{
    return mayLoseTexts(unsavedTexts(), goOn, QApplication::activeWindow());
}

bool mayLoseTexts(const QStringList &texts, const QString &goOn, QWidget *window)
{
    if (texts.isEmpty()) return true;
    const AlertText alert{.message = KWLocalizedString("Some text is not saved"),
                          .text = KWLocalizedString("This is typed and not saved yet; it would be lost:") +
                                  u"\n\n"_s + listed(texts),
                          .buttons = {goOn, KWLocalizedString("Go Back")},
                          .defaultButton = 1};
    return Alert::run(alert, window) == 0;
}
