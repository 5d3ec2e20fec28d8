// The sibling-format reader on arbitrary bytes.
#include "FuzzProject.h"
#include "FuzzSupport.h"

#include "files/modTesselbyFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    corvane::fuzz::FuzzScope scope(data, size, "input.tbsc");
    corvane::fuzz::MakeFreshProject();
    (void)corvane::ReadTesselbyFile(scope.Path());
    return 0;
}
