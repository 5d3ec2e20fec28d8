#pragma once

namespace corvane {

class frmCorvane;

// The letters a scan goes by: ScanID 0 to 25 "A" to "Z", up to 701 two letters ("AA" for 26),
// above that (and below 0) the number itself.

// The Scan menu of the main window: the scan history (add, delete, overwrite, import), the
// reset of the scan buffer, the scan mode and the scan options. The history commands work on
// the Scan page only, with a scan mode.
class ScanCommands {
public:
    explicit ScanCommands(frmCorvane& window);

    void mnuScanHistoryAdd_Click();
    void mnuScanHistoryDelete_Click();
    void mnuScanHistoryOverwrite_Click();
    void mnuScanHistoryImport_Click();
    void mnuScanResetBuffer_Click();
    void mnuScanModeManualEntry_Click();
    void mnuScanModeDigitalDAQ_Click();
    void mnuScanOptions_Click();

private:
    // The Scan page is shown, not minimised, and the station scans.
    bool ScanPageWorking() const;
    void ScanModeChanged();

    frmCorvane& window_;
};

} // namespace corvane
