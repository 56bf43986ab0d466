#include "views/theme/Theme.h"

#include "support/TestMain.h"
#include "views/theme/Icons.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/ThemeConfigurator.h"

#include <QApplication>
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

struct Pair {
    const char *name;
    QColor (*text)(const Theme &);
    QColor (*background)(const Theme &);
};

#define PAIR(text, background)                                                                               \
    Pair                                                                                                     \
    {                                                                                                        \
#text " on " #background,                                                                            \
            [](const Theme &theme)                                                                           \
                 -> QColor { return theme.text; }, [](const Theme &theme)                                    \
                                                        -> QColor { return theme.background; }               \
    }

// Every text that is painted, on everything it is painted on.
const Pair pairs[] = {
    PAIR(text, window),
    PAIR(text, sidebar),
    PAIR(text, hover),
    PAIR(text, selection),
    PAIR(text, popup),
    PAIR(secondaryText, window),
    PAIR(secondaryText, hover),
    PAIR(secondaryText, selection),
    PAIR(secondaryText, tag),
    PAIR(faintText, window),
    PAIR(faintText, sidebar),
    PAIR(faintText, hover),
    PAIR(doneText, window),
    PAIR(doneText, hover),
    PAIR(accentText, window),
    PAIR(accentText, hover),
    PAIR(accentText, selection),
    PAIR(accentText, softAccent),
    PAIR(overdueText, window),
    PAIR(overdueText, hover),
    PAIR(overdueText, selection),
    PAIR(onAccent, accent),
    PAIR(onToast, toast),
    PAIR(toastAction, toast),
    PAIR(high.text, high.soft),
    PAIR(medium.text, medium.soft),
    PAIR(low.text, low.soft),
    PAIR(none.text, none.soft),
};

QImage drawn(const QPixmap &pixmap) { return pixmap.toImage().convertToFormat(QImage::Format_ARGB32); }

bool hasInk(const QImage &image)
{
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) > 128) return true;
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
        ThemeConfigurator::shared().setTextSize(1);
    }

    void textCanBeRead_data()
    {
        QTest::addColumn<QColor>("text");
        QTest::addColumn<QColor>("background");
        for (const Pair &pair : pairs) {
            QTest::addRow("light: %s", pair.name)
                << pair.text(Theme::light()) << pair.background(Theme::light());
            QTest::addRow("dark: %s", pair.name)
                << pair.text(Theme::dark()) << pair.background(Theme::dark());
        }
    }

    void textCanBeRead()
    {
        QFETCH(const QColor, text);
        QFETCH(const QColor, background);
        const double ratio = contrast(text, background);
        QVERIFY2(ratio >= 4.5, qPrintable(u"%1 to 1"_s.arg(ratio)));
    }

    void contrastIsMeasuredAsDefined()
    {
        QCOMPARE(std::round(contrast(Qt::black, Qt::white)), 21);
        QCOMPARE(contrast(Qt::red, Qt::red), 1);
        QVERIFY(std::abs(contrast(QColor{0x767676}, Qt::white) - 4.54) < 0.005);
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
        configurator.autoSwitchDarkIfNeeded();
        QCOMPARE(changes.count(), 1);

        configurator.setMode(ThemeConfigurator::Mode::Dark);
        configurator.autoSwitchDarkIfNeeded();
        QCOMPARE(Theme::current().scheme, ColorScheme::Dark);
    }

    void textGrows()
    {
        auto &configurator = ThemeConfigurator::shared();
        configurator.apply();
        const int row = Metrics::scaled(Metrics::taskRow);
        configurator.setTextSize(2);
        QCOMPARE(Metrics::scaled(Metrics::taskRow), 2 * row);
        QCOMPARE(QApplication::font().pixelSize(), 26);
        configurator.setTextSize(100);
        QCOMPARE(configurator.textSize(), 3);
    }

    void everyIconDraws()
    {
        for (int icon = 0; icon <= int(Icon::Restore); ++icon)
            QVERIFY2(hasInk(drawn(Icons::pixmap(Icon(icon), 16, Qt::black, 1))),
                     qPrintable(QString::number(icon)));
        QVERIFY(hasInk(drawn(Icons::application(64, 1))));
    }

    void iconsTakeColourAndResolution()
    {
        const QPixmap coarse = Icons::pixmap(Icon::Flag, 16, Qt::red, 1);
        const QPixmap fine = Icons::pixmap(Icon::Flag, 16, Qt::red, 2);
        QCOMPARE(coarse.deviceIndependentSize(), fine.deviceIndependentSize());
        QCOMPARE(fine.width(), 32);
        const QRgb inside = drawn(fine).pixel(14, 12);
        QVERIFY(qRed(inside) > 200 && qGreen(inside) < 50 && qAlpha(inside) > 200);
    }

    void checkboxFillsWhileItIsTicked()
    {
        const auto ink = [](double checked) {
            QImage image{32, 32, QImage::Format_ARGB32_Premultiplied};
            image.fill(Qt::transparent);
            QPainter painter{&image};
            Painting::checkbox(painter, QRectF{4, 4, 24, 24}, {.checked = checked});
            painter.end();
            int filled = 0;
            for (int y = 0; y < 32; ++y)
                for (int x = 0; x < 32; ++x)
                    filled += qAlpha(image.pixel(x, y));
            return filled;
        };
        QVERIFY(ink(0) < ink(0.25));
        QVERIFY(ink(0.25) < ink(1));
    }
};

ORVANE_TEST(Theme_test)
#include "Theme_test.moc"
