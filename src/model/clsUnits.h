#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

namespace corvane {

// The project's length unit and the conversions between the length units of the station.
// Every length of a project is held in the unit PropLengthIndex names; an index of -1 in any
// argument stands for that unit.
class clsUnits {
public:
    static constexpr int kUnitCount = 5; // ft, m, in, mm, custom
    static constexpr int kCustomIndex = 4;

    void ClearAllData();
    // Only the project unit travels; rounding and the custom unit stay with the original.
    std::shared_ptr<clsUnits> CopyClass() const;

    // Significant digits a conversion rounds to; -1 means no rounding.
    std::int16_t SigDigits() const { return sigDigits_; }
    void SetSigDigits(std::int16_t value) { sigDigits_ = value; }

    std::int16_t PropLengthIndex() const { return propLengthIndex_; }
    void SetPropLengthIndex(std::int16_t value) { propLengthIndex_ = value; }

    // Display format of the project unit. The stored string is kept only for old callers
    // that set it; nothing reads it back.
    std::string PropLengthFormat() const;
    void SetPropLengthFormat(const std::string& value) { storedFormat_ = value; }

    // Target index before source index. Length, area (factors squared), volume (cubed).
    double ConvertUnitPropLength(double value, int toIndex, int fromIndex) const;
    double ConvertUnitPropLength2(double value, int toIndex, int fromIndex) const;
    double ConvertUnitPropLength3(double value, int toIndex, int fromIndex) const;

    std::string GetUnitPropLengthLabel(int index) const;
    void SetUnitPropLengthCustomData(const std::string& label, double factor);

    // Words used in files for indexes 0 to 3; the custom unit is never filed.
    std::string PropLengthFileTag(int index) const;
    static const std::array<std::string, 4>& PropLengthFileTags();

private:
    int ResolveIndex(int index) const;
    double Factor(int index) const;
    double Convert(double value, int toIndex, int fromIndex, int power) const;

    std::int16_t sigDigits_ = -1;
    std::int16_t propLengthIndex_ = 0;
    std::string storedFormat_;
    std::string customLabel_ = "CUSTOM";
    double customFactor_ = 0.0; // units in one foot; 0 until the custom unit is defined
};

} // namespace corvane
