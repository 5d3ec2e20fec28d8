#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "model/clsBlades.h"
#include "model/clsUnits.h"

namespace corvane {

// One scan of the propeller, or one reference propeller: header data and the blades. Lengths
// in the project unit; nothing converts here.
class clsPropeller {
public:
    clsPropeller();

    // Full deep copy: units (by their own copy), header and every blade.
    std::shared_ptr<clsPropeller> CopyClass() const;

    // Each propeller holds its own units object; it is copied with the propeller and not
    // otherwise read.
    std::shared_ptr<clsUnits> Units() const { return units_; }
    void SetUnits(std::shared_ptr<clsUnits> units) { units_ = std::move(units); }
    void SetLinkedClasses(std::shared_ptr<clsUnits> units) { units_ = std::move(units); }

    // The owned blade, not a copy. Bounded by the blades held, which can differ from
    // BladeCount after a count of 0 or less (see SetBladeCount).
    std::shared_ptr<clsBlades> Blades(int i) const;
    void SetBlades(int i, std::shared_ptr<clsBlades> blade);

    const std::string& Description() const { return description_; }
    void SetDescription(const std::string& v) { description_ = v; }
    const std::string& MaterialDescription() const { return materialDescription_; }
    void SetMaterialDescription(const std::string& v) { materialDescription_ = v; }
    std::int16_t RadialPresetIndex() const { return radialPresetIndex_; }
    void SetRadialPresetIndex(std::int16_t v) { radialPresetIndex_ = v; }

    // 0 or less gives 2 and leaves the blades as they are. A positive count reallocates and
    // keeps copies of the blades that stay; new blades are empty.
    std::int16_t BladeCount() const { return bladeCount_; }
    void SetBladeCount(std::int16_t n);

    double PitchMean() const { return pitchMean_; }
    void SetPitchMean(double v) { pitchMean_ = v; }
    double Diameter() const { return diameter_; }
    void SetDiameter(double v) { diameter_ = v; }
    const std::string& PitchOfRecord() const { return pitchOfRecord_; }
    void SetPitchOfRecord(const std::string& v) { pitchOfRecord_ = v; }
    double ISOPropellerPitch() const { return isoPropellerPitch_; }
    void SetISOPropellerPitch(double v) { isoPropellerPitch_ = v; }

    // 0 Initial, 1 Intermediate, 2 Final. -1 means the stored index; any other gives "".
    std::int16_t RepairStatusIndex() const { return repairStatusIndex_; }
    void SetRepairStatusIndex(std::int16_t v) { repairStatusIndex_ = v; }
    std::string RepairStatusFileTag(int index = -1) const;
    std::string RepairStatusLabel(int index = -1) const;

    const std::string& ScanDate() const { return scanDate_; }
    void SetScanDate(const std::string& v) { scanDate_ = v; }
    // Scan number within the project; unique there, with gaps after deletions.
    std::int16_t ScanID() const { return scanID_; }
    void SetScanID(std::int16_t v) { scanID_ = v; }
    const std::string& ScanSource() const { return scanSource_; }
    void SetScanSource(const std::string& v) { scanSource_ = v; }
    // Drop encoder type of the scan: 0 off, 1 dual channel, 2 single channel.
    std::int16_t ScanDrop() const { return scanDrop_; }
    void SetScanDrop(std::int16_t v) { scanDrop_ = v; }

private:
    std::size_t CheckIndex(int i) const;

    std::shared_ptr<clsUnits> units_;
    std::vector<std::shared_ptr<clsBlades>> blades_;
    std::string description_;
    std::string materialDescription_;
    std::int16_t radialPresetIndex_ = 4;
    std::int16_t bladeCount_ = 2;
    double pitchMean_ = 0;
    double diameter_ = 0;
    std::string pitchOfRecord_;
    double isoPropellerPitch_ = 0;
    std::int16_t repairStatusIndex_ = 0;
    std::string scanDate_;
    std::int16_t scanID_ = 0;
    std::string scanSource_;
    std::int16_t scanDrop_ = 0;
};

// The letter a scan is known by: ScanID 0 to 25 "A" to "Z", 26 to 701 two letters ("AA" for
// 26), the number itself beyond.
std::string ScanLabel(int scanID);

} // namespace corvane
