#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "model/clsPropeller.h"
#include "model/clsUnits.h"

namespace corvane {

// The project: one repair job on one propeller. Job data, the marked propeller data, two
// independent scan sets (right hand and left hand), and the reference settings with the
// reference propellers. Nothing here touches a file or the screen.
//
// Lengths are held in the project unit (Units()->PropLengthIndex()). A `unit` argument of -1
// means as stored; any other value is a unit index, and the getter converts from the project
// unit to it, the setter from it to the project unit.
//
// The selected set is the right one for RotationIndex 0 and the left one for any other
// value; PropellerScan, PropellerScanCount and ActiveScanIndex address it, the Right/Left
// members address a named set.
class clsCorvane {
public:
    clsCorvane();

    // Shared with gUnits; the project neither creates nor copies it.
    std::shared_ptr<clsUnits> Units() const { return units_; }
    void SetUnits(std::shared_ptr<clsUnits> units) { units_ = std::move(units); }
    void SetLinkedClasses(std::shared_ptr<clsUnits> units) { units_ = std::move(units); }

    const std::string& ProjectID() const { return projectID_; } // also the stem of the file name
    void SetProjectID(const std::string& v) { projectID_ = v; }
    const std::string& Customer() const { return customer_; }
    void SetCustomer(const std::string& v) { customer_ = v; }
    const std::string& Vessel() const { return vessel_; }
    void SetVessel(const std::string& v) { vessel_ = v; }
    const std::string& JobNumber() const { return jobNumber_; }
    void SetJobNumber(const std::string& v) { jobNumber_ = v; }
    const std::string& Inspector() const { return inspector_; }
    void SetInspector(const std::string& v) { inspector_ = v; }
    const std::string& RepairShop() const { return repairShop_; }
    void SetRepairShop(const std::string& v) { repairShop_ = v; }
    const std::string& Notes() const { return notes_; }
    void SetNotes(const std::string& v) { notes_ = v; }
    const std::string& JobNotes() const { return jobNotes_; }
    void SetJobNotes(const std::string& v) { jobNotes_ = v; }
    const std::string& Manufacturer() const { return manufacturer_; }
    void SetManufacturer(const std::string& v) { manufacturer_ = v; }
    const std::string& ModelNumber() const { return modelNumber_; }
    void SetModelNumber(const std::string& v) { modelNumber_ = v; }
    const std::string& SerialNumber() const { return serialNumber_; }
    void SetSerialNumber(const std::string& v) { serialNumber_ = v; }
    // As stamped on the propeller; free text, never parsed here.
    const std::string& MarkedPitch() const { return markedPitch_; }
    void SetMarkedPitch(const std::string& v) { markedPitch_ = v; }

    double MarkedDiameter(int unit = -1) const { return ToUnit(markedDiameter_, unit); }
    void SetMarkedDiameter(double value, int unit = -1) { markedDiameter_ = FromUnit(value, unit); }

    // Setting it also sets the blade count of every scan of the selected set (the other set
    // keeps its own) and resizes ReferenceScanBladesEnabled, keeping its values.
    std::int16_t BladeCount() const { return bladeCount_; }
    void SetBladeCount(std::int16_t n);

    // Lengths left out of the calculation at the trailing edge (cup) and the leading edge.
    double CupExclusionDistance(int unit = -1) const { return ToUnit(cupExclusionDistance_, unit); }
    void SetCupExclusionDistance(double value, int unit = -1) {
        cupExclusionDistance_ = FromUnit(value, unit);
    }
    double LEExclusionDistance(int unit = -1) const { return ToUnit(leExclusionDistance_, unit); }
    void SetLEExclusionDistance(double value, int unit = -1) { leExclusionDistance_ = FromUnit(value, unit); }

    // 0 right hand, 1 left hand; selects the scan set.
    std::int16_t RotationIndex() const { return rotationIndex_; }
    void SetRotationIndex(std::int16_t v) { rotationIndex_ = v; }
    // "Right" and "Left"; -1 means RotationIndex, any other index gives "".
    std::string RotationFileTag(int index = -1) const;
    std::string RotationLabel(int index = -1) const;

    const std::string& MaterialDescription() const { return materialDescription_; }
    void SetMaterialDescription(const std::string& v) { materialDescription_ = v; }
    const std::string& BoreSize() const { return boreSize_; } // free text
    void SetBoreSize(const std::string& v) { boreSize_ = v; }

    // Next ScanID to give out. One counter for both sets; it never goes down, so ScanIDs stay
    // unique within the project.
    std::int16_t ProjectScanCount() const { return projectScanCount_; }
    void SetProjectScanCount(std::int16_t v) { projectScanCount_ = v; }

    // Set sizes. The named setters select their set for the moment of the call and go
    // through SetPropellerScanCount.
    std::int16_t RightScanCount() const { return right_.count; }
    void SetRightScanCount(std::int16_t n) { SetNamedScanCount(0, n); }
    std::int16_t LeftScanCount() const { return left_.count; }
    void SetLeftScanCount(std::int16_t n) { SetNamedScanCount(1, n); }
    // 0 or less changes nothing: a set is never emptied here. Otherwise the whole set is
    // rebuilt from deep copies (references taken before no longer belong to the project), new
    // slots get empty scans, and every scan gets the project's BladeCount.
    std::int16_t PropellerScanCount() const { return Selected().count; }
    void SetPropellerScanCount(std::int16_t n);

    // Removes a scan of the selected set; always gives 0. The last scan of a set stays.
    std::int16_t RemovePropellerScan(int index);
    // Replaces every blade of the scan by an empty one, keeping its header. 1 done, 0 when
    // the index is beyond the set.
    std::int16_t ClearPropellerScanData(int index);

    // Slots hold the owned scan; a setter replaces the reference, it does not copy.
    std::shared_ptr<clsPropeller> PropellerScan(int i) const { return Slot(Selected(), i); }
    void SetPropellerScan(int i, std::shared_ptr<clsPropeller> scan) {
        Slot(Selected(), i) = std::move(scan);
    }
    std::shared_ptr<clsPropeller> RightScan(int i) const { return Slot(right_, i); }
    void SetRightScan(int i, std::shared_ptr<clsPropeller> scan) { Slot(right_, i) = std::move(scan); }
    std::shared_ptr<clsPropeller> LeftScan(int i) const { return Slot(left_, i); }
    void SetLeftScan(int i, std::shared_ptr<clsPropeller> scan) { Slot(left_, i) = std::move(scan); }

    // 0 "Manual", 1 "Auto". A new project sets 1; the object starts at 0.
    std::int16_t ReferenceSectionPitchSourceIndex() const { return referenceSectionPitchSourceIndex_; }
    void SetReferenceSectionPitchSourceIndex(std::int16_t v) { referenceSectionPitchSourceIndex_ = v; }
    std::string ReferenceSectionPitchSourceFileTag(int index = -1) const;
    std::string ReferenceSectionPitchSourceLabel(int index = -1) const;

    // 0 none, 1 internal scan, 2 external file, 3 external file (pitch only).
    std::int16_t ReferenceSourceIndex() const { return referenceSourceIndex_; }
    void SetReferenceSourceIndex(std::int16_t v) { referenceSourceIndex_ = v; }
    std::string ReferenceSourceFileTag(int index = -1) const;
    std::string ReferenceSourceLabel(int index = -1) const;

    // 0 constant, 1 variable pitch along the radius. The label with -1 answers for
    // ReferenceSourceIndex, not for this index; callers always pass an explicit index.
    std::int16_t ReferenceSectionPitchIndex() const { return referenceSectionPitchIndex_; }
    void SetReferenceSectionPitchIndex(std::int16_t v) { referenceSectionPitchIndex_ = v; }
    std::string ReferenceSectionPitchFileTag(int index = -1) const;
    std::string ReferenceSectionPitchLabel(int index = -1) const;

    // 0 flat face, 1 cambered face. Same -1 wrinkle on the label as above.
    std::int16_t ReferenceLocalPitchIndex() const { return referenceLocalPitchIndex_; }
    void SetReferenceLocalPitchIndex(std::int16_t v) { referenceLocalPitchIndex_ = v; }
    std::string ReferenceLocalPitchFileTag(int index = -1) const;
    std::string ReferenceLocalPitchLabel(int index = -1) const;

    const std::string& ReferenceSourceFilePath() const { return referenceSourceFilePath_; }
    void SetReferenceSourceFilePath(const std::string& v) { referenceSourceFilePath_ = v; }

    // Reference built from scans of this project, and reference read from a file.
    std::shared_ptr<clsPropeller> ReferenceScan() const { return referenceScan_; }
    void SetReferenceScan(std::shared_ptr<clsPropeller> p) { referenceScan_ = std::move(p); }
    std::shared_ptr<clsPropeller> ReferenceSource() const { return referenceSource_; }
    void SetReferenceSource(std::shared_ptr<clsPropeller> p) { referenceSource_ = std::move(p); }

    double ReferenceDiameter(int unit = -1) const { return ToUnit(referenceDiameter_, unit); }
    void SetReferenceDiameter(double value, int unit = -1) { referenceDiameter_ = FromUnit(value, unit); }
    // Read with a unit other than -1 this converts ReferenceDiameter, not the pitch. Every
    // caller reads it as stored; the behaviour is kept so that none comes to depend on a fix.
    double ReferenceConstantPitch(int unit = -1) const;
    void SetReferenceConstantPitch(double value, int unit = -1) {
        referenceConstantPitch_ = FromUnit(value, unit);
    }

    // Variable pitch table, one row per radial station. Row access is bounded by the rows
    // held; an array getter returns one element per row, or a single 0 below one row.
    bool ReferenceVariablePitchEnabled(int i) const { return Row(i).enabled; }
    void SetReferenceVariablePitchEnabled(int i, bool v) { Row(i).enabled = v; }
    std::vector<bool> ReferenceVariablePitchArrayEnabled() const;
    void SetReferenceVariablePitchArrayEnabled(const std::vector<bool>& a);
    double ReferenceVariablePitch(int i, int unit = -1) const { return ToUnit(Row(i).pitch, unit); }
    void SetReferenceVariablePitch(int i, double value, int unit = -1) {
        Row(i).pitch = FromUnit(value, unit);
    }
    std::vector<double> ReferenceVariablePitchArray(int unit = -1) const;
    void SetReferenceVariablePitchArray(const std::vector<double>& a, int unit = -1);
    // Fraction of the radius; no unit.
    double ReferenceVariablePitchRadialPos(int i) const { return Row(i).radialPos; }
    void SetReferenceVariablePitchRadialPos(int i, double v) { Row(i).radialPos = v; }
    std::vector<double> ReferenceVariablePitchRadialPosArray() const;
    void SetReferenceVariablePitchRadialPosArray(const std::vector<double>& a);
    // 0 or less erases the table and stores 1; otherwise resizes keeping rows.
    std::int16_t ReferenceVariablePitchCount() const { return referenceVariablePitchCount_; }
    void SetReferenceVariablePitchCount(std::int16_t n);

    // Active scan of the selected set, remembered per set.
    std::int16_t ActiveScanIndex() const {
        return rotationIndex_ == 0 ? activeRightScanIndex_ : activeLeftScanIndex_;
    }
    void SetActiveScanIndex(std::int16_t v) {
        (rotationIndex_ == 0 ? activeRightScanIndex_ : activeLeftScanIndex_) = v;
    }
    std::int16_t ActiveRightScanIndex() const { return activeRightScanIndex_; }
    void SetActiveRightScanIndex(std::int16_t v) { activeRightScanIndex_ = v; }
    std::int16_t ActiveLeftScanIndex() const { return activeLeftScanIndex_; }
    void SetActiveLeftScanIndex(std::int16_t v) { activeLeftScanIndex_ = v; }

    // 0 "Active": the internal reference follows the active scan; 1 "Locked": it stays on
    // the stored InternalScanIndex.
    std::int16_t InternalScanSourceIndex() const { return internalScanSourceIndex_; }
    void SetInternalScanSourceIndex(std::int16_t v) { internalScanSourceIndex_ = v; }
    std::string InternalScanSourceLabel(int index = -1) const;
    std::string InternalScanSourceFileTag(int index = -1) const;
    std::int16_t InternalScanIndex() const;
    void SetInternalScanIndex(std::int16_t v) { internalScanIndex_ = v; }

    // 1 when blade i takes part in the internal reference, else 0.
    std::int32_t ReferenceScanBladesEnabled(int i) const;
    void SetReferenceScanBladesEnabled(int i, std::int32_t v);

private:
    struct ScanSet {
        std::int16_t count = 0;
        std::vector<std::shared_ptr<clsPropeller>> scans;
    };
    struct VariablePitchRow {
        bool enabled = false;
        double radialPos = 0;
        double pitch = 0; // project unit
    };

    const ScanSet& Selected() const { return rotationIndex_ == 0 ? right_ : left_; }
    ScanSet& Selected() { return rotationIndex_ == 0 ? right_ : left_; }
    static std::shared_ptr<clsPropeller>& Slot(ScanSet& set, int i);
    static const std::shared_ptr<clsPropeller>& Slot(const ScanSet& set, int i);
    void SetNamedScanCount(std::int16_t rotation, std::int16_t n);
    VariablePitchRow& Row(int i);
    const VariablePitchRow& Row(int i) const;
    template <class T, class Get> std::vector<T> TableColumn(Get get) const;
    const clsUnits& RequireUnits() const;
    double ToUnit(double stored, int unit) const;
    double FromUnit(double value, int unit) const;

    std::shared_ptr<clsUnits> units_;
    std::string projectID_, customer_, vessel_, jobNumber_, inspector_, repairShop_, notes_, jobNotes_;
    std::string manufacturer_, modelNumber_, serialNumber_, markedPitch_;
    double markedDiameter_ = 0;
    std::int16_t bladeCount_ = 2;
    double cupExclusionDistance_ = 0;
    double leExclusionDistance_ = 0;
    std::int16_t rotationIndex_ = 0;
    std::string materialDescription_, boreSize_;
    std::int16_t projectScanCount_ = 0;
    ScanSet right_, left_;
    std::int16_t referenceSectionPitchSourceIndex_ = 0;
    std::int16_t referenceSourceIndex_ = 0;
    std::int16_t referenceSectionPitchIndex_ = 0;
    std::int16_t referenceLocalPitchIndex_ = 0;
    std::string referenceSourceFilePath_;
    std::shared_ptr<clsPropeller> referenceScan_;
    std::shared_ptr<clsPropeller> referenceSource_;
    double referenceDiameter_ = 0;
    double referenceConstantPitch_ = 0;
    std::vector<VariablePitchRow> variablePitch_;
    std::int16_t referenceVariablePitchCount_ = 8;
    std::int16_t activeRightScanIndex_ = 0;
    std::int16_t activeLeftScanIndex_ = 0;
    std::int16_t internalScanSourceIndex_ = 0;
    std::int16_t internalScanIndex_ = 0;
    std::vector<std::int32_t> referenceScanBladesEnabled_;
};

} // namespace corvane
