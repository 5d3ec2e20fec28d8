// The calibration file reader on arbitrary bytes; a calibration it accepts is written back and
// must read again with the same encoder types and flips.
#include "FuzzSupport.h"

#include "files/modCalibrationFile.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    corvane::fuzz::FuzzScope scope(data, size, "input.cvst");
    corvane::CalibrationValues values;
    corvane::CalibrationLimits limits;
    if (corvane::ReadCalibrationFile(scope.Path(), values, limits) != 1) {
        return 0;
    }
    const std::string copy = scope.Folder() + "copy.cvst";
    if (corvane::WriteCalibrationFile(copy, values) != 1) {
        return 0;
    }
    corvane::CalibrationValues again;
    if (corvane::ReadCalibrationFile(copy, again, limits) != 1) {
        std::abort();
    }
    // Numbers are written to 15 digits and text is trimmed; the words must come back exactly.
    if (again.angleType != values.angleType || again.radiusType != values.radiusType ||
        again.dropType != values.dropType || again.angleFlip != values.angleFlip ||
        again.radiusFlip != values.radiusFlip || again.dropFlip != values.dropFlip) {
        std::abort();
    }
    return 0;
}
