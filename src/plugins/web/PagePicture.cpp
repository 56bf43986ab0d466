#include "plugins/web/PagePicture.h"

#include <QTimer>
#include <QWebEnginePage>
#include <QWebEngineSettings>
#include <QWebEngineView>

#include <algorithm>

using namespace std::chrono_literals;

namespace {

constexpr int lowest = 16;     // pixels; a page is as high as its view at least
constexpr int highest = 30000; // what is longer is no picture any more
constexpr auto betweenTries = 100ms;
constexpr int mostTries = 50;

// Nothing of the page has been painted while all of it has one colour. Where there is more than one, it is
// whole when it stays as it is.
bool isBlank(const QImage &picture)
{
    const QRgb first = picture.pixel(0, 0);
    for (int y = 0; y < picture.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(picture.constScanLine(y));
        if (std::any_of(line, line + picture.width(), [first](QRgb each) { return each != first; }))
            return false;
    }
    return true;
}

} // namespace

PagePicture::PagePicture(const QString &html, const QUrl &address, QWebEngineProfile &profile, int width,
                         QObject &parent, Done done)
    : QObject(&parent), m_done(std::move(done)), m_width(width), m_view(std::make_unique<QWebEngineView>())
{
    auto *page = new QWebEnginePage{&profile, m_view.get()};
    page->settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, false); // it is as it is
    page->settings()->setAttribute(QWebEngineSettings::ShowScrollBars, false);
    m_view->setPage(page);
    m_view->setAttribute(Qt::WA_DontShowOnScreen);
    m_view->resize(width, lowest);
    m_view->show();
    connect(page, &QWebEnginePage::loadFinished, this, [this](bool isLoaded) {
        if (isLoaded)
            QTimer::singleShot(betweenTries, this, &PagePicture::measure);
        else
            end({});
    });
    QString printed = html;
    printed.replace(printed.indexOf(QLatin1StringView{"<html"}), 5,
                    QStringLiteral("<html class=\"printed\""));
    page->setHtml(printed, address);
}

PagePicture::~PagePicture() = default;

void PagePicture::measure()
{
    const int height = int(m_view->page()->contentsSize().height());
    if (height > highest) return end({});
    m_view->resize(m_width, std::max(height, 1));
    draw(mostTries, {});
}

void PagePicture::draw(int tries, const QImage &before)
{
    QTimer::singleShot(betweenTries, this, [this, tries, before] {
        const QImage picture = m_view->grab().toImage().convertToFormat(QImage::Format_RGB32);
        if (!isBlank(picture) && picture == before) return end(picture);
        tries > 0 ? draw(tries - 1, picture) : end({});
    });
}

void PagePicture::end(const QImage &picture)
{
    m_done(picture);
    deleteLater();
}
