#pragma once

#include "corvexkit/time/CXClock.h"
#include "model/store/KWTaskListItemModel.h"

#include <QList>

#include <memory>

class QTextDocument;
class QWidget;

/// A list on paper: its title, and a line for each task with an empty or ticked box and its date.
namespace ListPrint {

std::unique_ptr<QTextDocument> document(const QString &title, const QList<KWTaskListItemModel> &rows,
                                        const CXClock &clock);

/// Asks for a printer and prints.
void run(const QTextDocument &document, const QString &title, QWidget &window);

} // namespace ListPrint
