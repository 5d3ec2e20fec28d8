#pragma once

// The reference propeller as a group of blocks: a cvrf file of its own (written by the
// reference editor) or the tail of a project file. A reference is one representative blade
// with its section values and no raw sweeps:
//
//   [ReferencePropeller]          Diameter
//   [ReferenceBlade1]             SectionCount
//   [ReferenceBlade1Section<k>]   RadialPos, Chord, Pitch, SkewHelix, RakeAft,
//                                 SegmentPanelCount, SegmentPanelPitch (only with panels)
//
// Older files hold a legacy form of the same blocks with raw sweeps; it is still read.
// Lengths are in the project unit. Nothing here shows a message but the legacy reader's
// notices: callers show their own.

#include "model/clsPropeller.h"

#include <string>

namespace corvane {

// Writes blade 0 of the propeller, whatever its BladeCount says; a propeller without blades
// writes the ReferencePropeller block alone. The flag is cleared at the start, a block that
// cannot be written sets it and the writing goes on. Blocks of the file that this does not
// write stay as they are, and the file is replaced in one go. 1 when nothing was flagged.
int WriteReferenceBlocks(const std::string& path, const clsPropeller& propeller, bool& errorFlag,
                         std::string& errorText);

// Reads the blocks into the propeller, which gets one blade. A file without a
// ReferencePropeller block is no error: 1, and the propeller stays as it is. A missing blade
// or section block sets the flag and gives 0; a SegmentPanelPitch whose length differs from
// SegmentPanelCount sets the flag and is dropped. Shows nothing: callers tell the collected
// text.
int ReadReferenceBlocks(const std::string& path, clsPropeller& propeller, bool& errorFlag,
                        std::string& errorText);

// Reads the legacy blocks into gProject's ReferenceSource and builds its other blades from
// blade 0, each turned by its share of the circle. Shows nothing: the collected text goes back
// to the caller. 1, or 0 for an empty path or a missing blade or section block.
int ReadLegacyReferenceBlocks(const std::string& path, bool& errorFlag, std::string& errorText);

} // namespace corvane
