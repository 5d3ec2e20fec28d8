#pragma once

// The blocks that the project file and its older sibling format share: the propeller data,
// the scans with their blades and sections, and the repair of the inner radius setting after
// the scans are in. The two readers differ in a few rules, which they pass in.

#include "files/modProjectFileSupport.h"
#include "iso484/clsISO484.h"
#include "model/clsCorvane.h"

#include <string>

namespace corvane::projectfile {

// What a reader does when the header block of a scan is missing.
enum class MissingScanBlock {
    NoticeAndGoOn, // "Block ... not found." and the scan reads as empty (right scans of a project)
    NoticeAndFail, // the same text, then the failure exit (left scans of a project)
    Fail,          // the failure exit alone (the sibling format)
};

struct ScanBlockRules {
    std::string prefix; // "RightPropeller", "LeftPropeller" or "Propeller"
    MissingScanBlock missingScanBlock = MissingScanBlock::Fail;
    // Raw points are read from this RawOffsetCount on. Right scans of a project need 2, and a
    // right section with fewer points loads empty; other sections keep the count as filed.
    int minPointCount = 1;
    bool shortSectionsLoadEmpty = false;
    // ScanSource and ScanDrop exist in project files only.
    bool hasSourceAndDrop = true;
    // The sibling format puts the 0-based index in a ScanID that could not be read.
    bool scanIDFallback = false;
};

// Reads scan `number` (1-based, as in the block names), its blades and their sections into
// the scan. A missing blade or section block is the failure exit.
ReadOutcome ReadScanBlocks(BlockReader& reader, const ScanBlockRules& rules, int number, clsPropeller& scan);

// Sets the size of a scan set from the float a file holds: rotation 0 the right set, 1 the
// left, -1 the set that RotationIndex selects. A count whose empty blades the file could not
// account for is reduced, with a line in the text.
void SetScanCountFromFile(BlockReader& reader, clsCorvane& project, int rotation, double value,
                          const std::string& tag);

// The PropellerInfo tags both formats share, the block loaded: marks, blade count, rotation,
// material, bore, the ISO settings and the exclusion distances. The sibling format files the
// bore size as a float and knows three task words; project files know five, the last two
// being the older names of tasks 0 and 1.
void ReadPropellerInfoTags(BlockReader& reader, clsCorvane& project, clsISO484& iso, bool siblingFormat);

// After the scans are in: with no inner radius set, a blade of the selected set with points at
// section 7 sets the inner radius from that section's radial position, or switches the inner
// radius off when the position is not above 0.
void RepairInnerRadius(clsCorvane& project, clsISO484& iso);

// gProject, gUnits and gISO484, which the caller creates before a read; their absence is an
// error for the handler.
void RequireProjectGlobals();

} // namespace corvane::projectfile
