#pragma once

// Michigan Wheel pitch progression files (ppp) as text: an ideal propeller told by the pitch of
// each panel of each section, read into blade 0 of a clsPropeller. Turning the sections into
// surfaces is the reference module's business.
//
// The file is line-oriented text. A line holding one of the bracketed headers starts that
// block (anywhere in the line, any case) and the following lines hold its data:
//
//   [Prop Description]                    one line of free text
//   [Number of Radii + 1]                 the number of sections
//   [Number of Sectors per Radius + 2]    the number of panels of every section
//   [Pitch Progression Table by Row]      propeller pitch, then r/R * 100 of each section;
//                                         one row of panel pitches per panel, "LE" first and
//                                         "TE" last; then "Avg" with the section pitches
//   [Chord Lengths] [Rake] [Skew]         one row each, one value per section
//   [Diameter]                            one value
//
// Sections stand hub first in the file and tip first in memory (section 0 outermost). Numbers
// are split on blanks and read leniently ("12abc" reads 12); lengths are in the project unit.

#include "model/clsPropeller.h"

#include <cstdint>
#include <string>

namespace corvane {

// Limits of what a file may ask for, so that a damaged file cannot make the reader allocate
// without bound. A reference never has more than a few dozen sections or panels.
inline constexpr int kMaxPPPSections = 100;
inline constexpr int kMaxPPPPanels = 500;

enum class PPPReadStatus {
    Read,       // every block was there
    Incomplete, // read to the end, but some blocks were missing
    Refused,    // the counts are out of bounds: `refusal` says which
    Failed,     // the file could not be read, or an error was ignored (the handler has told it)
};

struct [[nodiscard]] PPPRead {
    PPPReadStatus status = PPPReadStatus::Read;
    std::string refusal;
    bool Usable() const { return status == PPPReadStatus::Read || status == PPPReadStatus::Incomplete; }
};

// Reads the file into `propeller` for a project of bladeCount blades: description, blade 0's
// sections (RadialPos, Pitch, Chord, RakeAft, SkewHelix, the panel pitches), ISOBladePitch of
// blade 0 and Diameter. Asks nothing and shows nothing but the errors of the handler.
PPPRead ReadPPPFile(const std::string& path, clsPropeller& propeller, std::int16_t bladeCount);

} // namespace corvane
