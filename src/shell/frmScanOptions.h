#pragma once

#include <QDialog>

class QComboBox;

namespace corvane {

// The scan sequence of the session: all blades per radius (0) or all radii per blade (1),
// bound to gScanOrderMode and written on OK. Reading the default options again puts it back to 0.
class frmScanOptions : public QDialog {
    Q_OBJECT

public:
    explicit frmScanOptions(QWidget* parent = nullptr);

    void ClickOK();

private:
    QComboBox* cboScanMode_;
};

} // namespace corvane
