// The measure for start_bench: an empty Qt widgets window that tells when it has painted, and its
// proportional memory, and ends.

#include "client/FirstPaintReport.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>

namespace {

class EmptyWindow : public QWidget {
protected:
    void paintEvent(QPaintEvent *) override
    {
        QTimer::singleShot(0, [] {
            reportFirstPaint();
            QCoreApplication::quit();
        });
    }
};

} // namespace

int main(int argc, char **argv)
{
    const QApplication application{argc, argv};
    EmptyWindow window;
    window.resize(1280, 800);
    window.show();
    return QApplication::exec();
}
