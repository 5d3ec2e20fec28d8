// The reference readers on arbitrary bytes, and the writer over what the present reader got.
#include "FuzzProject.h"
#include "FuzzSupport.h"

#include "files/modReferenceFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    corvane::fuzz::FuzzScope scope(data, size, "input.cvrf");
    corvane::fuzz::MakeFreshProject();
    bool flag = false;
    std::string text;
    corvane::clsPropeller propeller;
    corvane::ReadReferenceBlocks(scope.Path(), propeller, flag, text);
    corvane::ReadLegacyReferenceBlocks(scope.Path(), flag, text);
    corvane::WriteReferenceBlocks(scope.Folder() + "out.cvrf", propeller, flag, text);
    return 0;
}
