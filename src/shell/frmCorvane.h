#pragma once

#include <QMainWindow>

namespace corvane {

// The application's main window. It holds the page buttons and the pages; closing it asks the
// technician for confirmation and ends the program.
class frmCorvane : public QMainWindow {
    Q_OBJECT

public:
    explicit frmCorvane(QWidget* parent = nullptr);

    // "Corvane" in Shop mode, with the open project's file name.
    void UpdateTitle();

protected:
    void closeEvent(QCloseEvent* event) override;
};

} // namespace corvane
