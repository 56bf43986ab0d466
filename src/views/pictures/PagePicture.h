#pragma once

#include "corvexkit/Result.h"
#include "model/records/KWListIdentifier.h"

#include <QSize>
#include <QString>

#include <optional>

class OrvaneKit;
class QWidget;

/// What a picture shows, as asked for on the command line.
struct PictureRequest {
    QString file;
    QString page = QStringLiteral("today");
    QSize size{1280, 800};
    double scale = 1;
};

/// Reads "1280x800" and "2"; an error names what is wrong.
Result<PictureRequest> pictureRequest(const QString &file, const QString &page, const QString &size,
                                      const QString &scale);

/// The list that a page shows: "today", "inbox", "list:NAME", "tag:NAME", …; nothing for "welcome". A
/// page that does not exist is an error that says so.
Result<std::optional<KWListIdentifier>> listOfPage(const QString &page, OrvaneKit &kit);

/// Draws the window, once it is complete, into the file.
Result<void> savePicture(QWidget &window, const QString &file);
