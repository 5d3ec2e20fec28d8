#pragma once

// The project file (cvpj): the job data, the settings and the raw sweeps of every section of
// every scan, in blocks of Tag=Value lines. Results are not filed; they are recalculated after
// a load. In the order of writing:
//
//   [Project]                          schema, stamp, source, unit and job data
//   [PropellerInfo]                    marked data, ISO settings, scan counts
//   [RightPropeller<i>]                each right scan, its blades and their sections, nested:
//   [RightPropeller<i>Blade<j>]          RightPropeller1, RightPropeller1Blade1,
//   [RightPropeller<i>Blade<j>Section<k>]  RightPropeller1Blade1Section1, ...
//   [LeftPropeller<i>...]              the same for the left scans
//   [ReferencePropellerInfo]           reference settings and the variable pitch table
//   [ReferencePropeller...]            the reference blocks of the chosen reference
//
// Block numbers are the 0-based model indexes plus 1. Lengths are in the project unit that
// PropLength names.

#include "model/clsPropeller.h"

#include "files/FileReadResult.h"

#include <cstdint>
#include <string>

namespace corvane {

// Writes gProject, gUnits and gISO484 to the file. The file is replaced in one go, and blocks
// of the old file that this save does not write (scans deleted since) stay in it, unread. A
// scan reference that is not usable (constant pitch not above 0, or a variable pitch below 0)
// is saved as no reference, and gProject then has none. 1 when written without a flag; 0 when
// a tag could not be written (the file is written all the same) or when the file could not be
// written, after the error handler had its say ("writing the cvpj file to disk"): the old file
// is then as it was.
int WriteProjectFile(const std::string& path);

// Reads a project file into gProject and gISO484, which the caller has just created: the
// reader fills them and clears nothing. Missing or unknown items are collected and handed back
// with the notice the window shows for them under "File read notice"; the status is 1 for a
// usable project (with or without a notice), 0 when a needed block is missing or an error was
// ignored.
//
// A reference saved from a cvrf or ppp file that still exists is read again from that file; when
// that cannot be done the embedded copy serves and ReferenceSourceFilePath keeps only the file
// name.
FileReadResult ReadProjectFile(const std::string& path);

// The few values the project library lists, from the Project and PropellerInfo blocks of a
// project or sibling-format file. Touches neither gProject nor the screen; 0 when either block
// is missing or the file cannot be read. lastModified is the stamp as filed.
int ReadProjectHeader(const std::string& path, std::string& projectID, std::string& lastModified,
                      std::string& customer, double& markedDiameter, std::string& markedPitch,
                      std::int16_t& bladeCount, std::int16_t& classIndex, std::int16_t& propLengthIndex);

// True when the file holds a Project or a PropellerInfo block, as every project and sibling-format
// file does: a file without either is no project file at all, not a damaged one.
bool HoldsProjectBlocks(const std::string& path);

} // namespace corvane
