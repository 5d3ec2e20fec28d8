// The Hale MRI scan import on arbitrary bytes, into a new project as the File menu reads it.
#include "FuzzProject.h"
#include "FuzzSupport.h"

#include "files/modHaleMRIFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    corvane::fuzz::FuzzScope scope(data, size, "input.txt");
    corvane::fuzz::MakeFreshProject();
    (void)corvane::ImportHaleMRIFile(scope.Path(), *corvane::gProject, *corvane::gISO484);
    return 0;
}
