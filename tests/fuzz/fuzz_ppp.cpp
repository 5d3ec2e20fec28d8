// The ppp reader on arbitrary bytes, then the resplining and the writer over what it read, and
// the reader once more over what was written.
#include "FuzzProject.h"
#include "FuzzSupport.h"

#include "reference/modImportFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    corvane::fuzz::FuzzScope scope(data, size, "input.ppp");
    corvane::fuzz::MakeFreshProject();
    corvane::gProject->SetMarkedDiameter(40.0);
    corvane::clsPropeller propeller;
    if (corvane::ImportPPPFile(scope.Path(), propeller, 4) != 1) {
        return 0;
    }
    corvane::ResplineSectionsToISORadii(propeller);
    const std::string out = scope.Folder() + "out.ppp";
    if (corvane::WritePPPFile(out, propeller) == 1) {
        corvane::clsPropeller again;
        corvane::ImportPPPFile(out, again, 4);
    }
    return 0;
}
