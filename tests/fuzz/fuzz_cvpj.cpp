// The project reader on arbitrary bytes, then the writer over what it read, and the header read
// of the library.
#include "FuzzProject.h"
#include "FuzzSupport.h"

#include "files/modProjectFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    corvane::fuzz::FuzzScope scope(data, size, "input.cvpj");
    corvane::fuzz::MakeFreshProject();
    (void)corvane::ReadProjectFile(scope.Path());
    corvane::WriteProjectFile(scope.Path());

    std::string id, stamp, customer, pitch;
    double diameter = 0;
    std::int16_t blades = 0, classIndex = 0, unit = 0;
    corvane::ReadProjectHeader(scope.Path(), id, stamp, customer, diameter, pitch, blades, classIndex, unit);
    return 0;
}
