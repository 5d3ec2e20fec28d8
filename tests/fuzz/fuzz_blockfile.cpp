// The block and tag engine on arbitrary bytes: read some blocks and every kind of tag, then write
// a block back into the same file and read it again.
#include "FuzzSupport.h"

#include "files/clsFileINI.h"
#include "model/CorvaneError.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    corvane::fuzz::FuzzScope scope(data, size, "input.cvpj");
    corvane::clsFileINI file;
    bool flag = false;
    std::string text;
    for (const char* block : {"Project", "PropellerInfo", "RightPropeller1Blade1Section1"}) {
        if (!file.ReadBlock(block, scope.Path()))
            continue;
        for (const auto& line : file.Lines()) {
            const auto tag = line.substr(0, line.find('='));
            std::vector<double> floats;
            std::vector<std::string> strings;
            std::vector<std::int16_t> integers;
            file.GetStringFromBlockTag(tag, flag, text);
            file.GetFloatFromBlockTag(tag, flag, text);
            file.GetFloatArrayFromBlockTag(tag, floats, flag, text);
            file.GetStringArrayFromBlockTag(tag, strings, flag, text);
            file.GetMultiStringFromBlockTag(tag, flag, text);
            file.GetIndexFromBlockTag(tag, {"Off", "On"}, flag, text);
            try {
                file.GetIntegerFromBlockTag(tag, flag, text);
                file.GetIntegerArrayFromBlockTag(tag, integers, flag, text);
            } catch (const corvane::CorvaneError&) {
                // Out of 16 bits: the readers turn this into a notice through the error path.
            }
        }
    }
    file.ResetArrayIndex();
    file.SetFloatArrayToBlockTag("Radius", 3, {1.5, 0.5, 1.5e-5}, flag, text);
    file.WriteBlock("PropellerInfo", scope.Path());
    file.ReadBlock("PropellerInfo", scope.Path());
    return 0;
}
