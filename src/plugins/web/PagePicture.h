#pragma once

#include <QImage>
#include <QObject>
#include <QUrl>

#include <functional>

class QWebEngineProfile;
class QWebEngineView;

/// Draws a page that is not shown, from its top to its end, as it is printed. Goes when it is done.
class PagePicture : public QObject {
    Q_OBJECT

public:
    using Done = std::function<void(const QImage &)>;

    PagePicture(const QString &html, const QUrl &address, QWebEngineProfile &profile, int width,
                QObject &parent, Done done);
    ~PagePicture() override;

private:
    void measure();
    void draw(int tries);
    void end(const QImage &picture);

    Done m_done;
    int m_width;
    std::unique_ptr<QWebEngineView> m_view;
};
