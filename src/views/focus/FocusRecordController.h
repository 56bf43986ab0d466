#pragma once

#include "focus/FocusPageLoader.h"
#include "model/store/UndoToken.h"

#include <functional>

class FocusPresenter;
class FocusRecordDialog;
class FocusSideView;

/// Fills the right column of focus, and adds, changes and deletes records as it asks. Each can be taken back;
/// what cannot be done says so. Main thread.
class FocusRecordController : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    struct Parts {
        FocusSideView &side;
        FocusPresenter &presenter;
        QWidget &window;
    };
    explicit FocusRecordController(const Parts &parts);

    /// The page is shown, or not any more: then nothing is read.
    void open();
    void close() { m_loader.stop(); }

Q_SIGNALS:
    void changed(const QString &message, const std::function<void()> &undo);
    void failed(const QString &sentence);
    void targetRequested(const FocusTarget &target);

private:
    void create();
    void edit(const QString &recordID);
    void remove(const QString &recordID);
    void saveNew(FocusRecordDialog &dialog);
    void saveChange(FocusRecordDialog &dialog, const QString &recordID);
    void report(const Result<UndoToken> &done, const QString &message, FocusRecordDialog *dialog);

    Parts m_parts;
    FocusPageLoader m_loader;
};
