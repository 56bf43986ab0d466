#include "views/theme/Theme.h"

#include "support/TestMain.h"
#include "views/theme/Fonts.h"
#include "views/theme/Icons.h"
#include "views/theme/ItemColors.h"
#include "views/theme/ListColors.h"
#include "views/theme/ThemeConfigurator.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QPainter>
#include <QSignalSpy>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// WCAG 2.1, "relative luminance" and "contrast ratio".
double luminance(const QColor &color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor &one, const QColor &other)
{
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

struct Text {
    QColor colour;
    QList<QColor> backgrounds;
};

// Every text that is painted, on everything it is painted on.
QList<Text> textsOf(const Theme &theme)
{
    return {
        {theme.text, {theme.window, theme.sidebar, theme.hover, theme.selection, theme.popup}},
        {theme.secondaryText, {theme.window, theme.hover, theme.selection, theme.tag}},
        {theme.faintText, {theme.window, theme.sidebar, theme.hover}},
        {theme.doneText, {theme.window, theme.hover}},
        {theme.accentText, {theme.window, theme.hover, theme.selection, theme.softAccent}},
        {theme.overdueText, {theme.window, theme.hover, theme.selection}},
        {theme.onAccent, {theme.accent}},
        {theme.onToast, {theme.toast}},
        {theme.toastAction, {theme.toast}},
        {theme.high.text, {theme.high.soft}},
        {theme.medium.text, {theme.medium.soft}},
        {theme.low.text, {theme.low.soft}},
        {theme.none.text, {theme.none.soft}},
    };
}

bool hasInk(const QPixmap &pixmap)
{
    const QImage image = pixmap.toImage();
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y).alpha() > 128) return true;
    return false;
}

} // namespace

class Theme_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        ThemeConfigurator::shared().setDesktopScheme({});
        ThemeConfigurator::shared().setMode(ThemeConfigurator::Mode::FollowDesktop);
    }

    void textCanBeRead()
    {
        for (const Text &text : textsOf(Theme::light()) + textsOf(Theme::dark()))
            for (const QColor &background : text.backgrounds) {
                const double ratio = contrast(text.colour, background);
                const QString pair = u"%1 on %2: "_s.arg(text.colour.name(), background.name());
                QVERIFY2(ratio >= 4.5, qPrintable(pair + QString::number(ratio)));
            }
    }

    void itemsCanBeReadInAnyColor()
    {
        ThemeConfigurator::shared().apply();
        QStringList colors{u"#ffffff"_s, u"#000000"_s, u"#ffff00"_s, u"#00ff00"_s, u"none"_s};
        for (const ListColor &each : listColors)
            colors += QString::fromLatin1(each.value);
        for (const auto mode : {ThemeConfigurator::Mode::Light, ThemeConfigurator::Mode::Dark}) {
            ThemeConfigurator::shared().setMode(mode);
            for (const QString &each : colors)
                for (const ItemColors &item : {ItemColors::of(each), ItemColors::ofClosed(each)})
                    for (const QColor &text : {item.text, item.note})
                        QVERIFY2(contrast(text, item.fill) >= 4.5, qPrintable(each));
            for (const QString &each : colors) {
                const InkedColor disc = InkedColor::of(ItemColors::edgeOf(each));
                QVERIFY2(contrast(disc.ink, disc.fill) >= 4.5, qPrintable(each));
            }
        }
        QVERIFY(ItemColors::of(u"#3e8ef7"_s).fill != ItemColors::of(u"#e79a0c"_s).fill);
    }

    void followsTheDesktopUnlessSet()
    {
        auto &configurator = ThemeConfigurator::shared();
        configurator.apply();
        ColorScheme desktop = ColorScheme::Dark;
        configurator.setDesktopScheme([&desktop] { return desktop; });
        QCOMPARE(Theme::current().scheme, ColorScheme::Dark);
        QCOMPARE(QApplication::palette().color(QPalette::Window), Theme::dark().window);

        QSignalSpy changes{&configurator, &ThemeConfigurator::themeChanged};
        desktop = ColorScheme::Light;
        configurator.autoSwitchDarkIfNeeded();
        QCOMPARE(Theme::current().scheme, ColorScheme::Light);
        QCOMPARE(changes.count(), 1);

        configurator.setMode(ThemeConfigurator::Mode::Dark);
        configurator.autoSwitchDarkIfNeeded();
        QCOMPARE(Theme::current().scheme, ColorScheme::Dark);
    }

    void closedTasksAreStruckOut()
    {
        const auto drawn = [](Fonts::LineStyle style) {
            QImage image{80, 24, QImage::Format_ARGB32_Premultiplied};
            image.fill(Qt::transparent);
            QPainter painter{&image};
            Fonts::drawLine(painter, Fonts::Role::Body, image.rect(), Qt::AlignLeft, u"task"_s, style);
            return image;
        };
        QVERIFY(drawn(Fonts::LineStyle::StruckOut) != drawn(Fonts::LineStyle::Plain));
    }

    void aBoxOfChoicesOpensAsHighAsTheyAre()
    {
        ThemeConfigurator::shared().apply();
        QComboBox box;
        box.addItems({u"Never"_s, u"Every day"_s, u"Every month on the last working day"_s});
        box.show();
        box.showPopup();
        const int row = box.view()->sizeHintForRow(0);
        QVERIFY(row >= box.fontMetrics().height() && row < 2 * box.height());
        const QWidget *list = box.view()->window();
        QVERIFY(list->height() >= 3 * row && list->height() < 4 * row);
        QVERIFY(list->width() > QFontMetrics{box.font()}.horizontalAdvance(box.itemText(2)));
    }

    void everyIconDraws()
    {
        for (int icon = 0; icon <= int(Icon::Focus); ++icon)
            QVERIFY2(hasInk(Icons::pixmap(Icon(icon), 16, Qt::black, 1)), qPrintable(QString::number(icon)));
        QVERIFY(hasInk(Icons::application(64, 1)));
    }
};

ORVANE_TEST(Theme_test)
#include "Theme_test.moc"
