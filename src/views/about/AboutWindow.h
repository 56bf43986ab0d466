#pragma once

#include <QDialog>

/// What this program is, and of which version.
class AboutWindow : public QDialog {
    Q_OBJECT

public:
    explicit AboutWindow(QWidget *parent = nullptr);
};
