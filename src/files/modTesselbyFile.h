#pragma once

// The scan file of the earlier sibling product (tbsc), read only. One scan set, which goes to
// the set that the file's rotation selects, in blocks Propeller<i>, Propeller<i>Blade<j> and
// Propeller<i>Blade<j>Section<k>. Schema 0 files keep the job data in blocks of their own
// (Units, RepairShopInfo, ClientInfo); schemas below 2 keep the reference in the legacy form.

#include "files/FileReadResult.h"
#include "files/clsFileINI.h"

#include <string>
#include <vector>

namespace corvane {

// Reads a tbsc file into gProject and gISO484, which the caller has just created. Notices and
// results as ReadProjectFile; the reference is taken as filed, and ReferenceSourceFilePath is
// left empty.
FileReadResult ReadTesselbyFile(const std::string& path);

// The job data of a schema 0 file: blocks Units, RepairShopInfo and ClientInfo. A blank
// ProjectID takes the file's name without extension. A missing block sets the flag, shows the
// text to `notices` under "Legacy file read notice", and gives 0.
int ReadLegacyProjectBlocks(clsFileINI& file, const std::string& path, int schemaVersion, bool& errorFlag,
                            std::string& errorText, std::vector<Notice>& notices);

} // namespace corvane
