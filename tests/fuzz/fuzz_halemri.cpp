// The Hale MRI calibration reader on arbitrary bytes.
#include "FuzzSupport.h"

#include "files/modCalibrationFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    corvane::fuzz::FuzzScope scope(data, size, "input.txt");
    corvane::CalibrationValues values;
    corvane::CalibrationLimits limits;
    corvane::ReadHaleMRICalibrationFile(scope.Path(), values, limits);
    return 0;
}
