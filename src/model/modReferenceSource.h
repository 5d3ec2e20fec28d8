#pragma once

// Where the reference a scan is compared with comes from (clsCorvane::ReferenceSourceIndex), and
// what each source needs before a reference can be made of it.

#include <cstdint>

namespace corvane {

class clsCorvane;

enum ReferenceSourceKind : std::int16_t {
    kReferenceNone = 0,      // the scan is shown alone, nothing is judged
    kReferenceScan = 1,      // an ideal propeller made from a scan of the project at a given pitch
    kReferenceFile = 2,      // a cvrf or ppp file
    kReferenceFilePitch = 3, // a file, of which only the pitch is taken
};

inline bool IsFileReference(std::int16_t source) {
    return source == kReferenceFile || source == kReferenceFilePitch;
}

// The pitch a scan reference is built at can be had: a constant pitch above 0, or a variable
// pitch with no row below 0.
bool ScanReferencePitchUsable(const clsCorvane& project);

// The reference settings can be used: a file reference names its file, a scan reference has its
// pitch. No reference is always usable.
bool ReferenceSettingsUsable(const clsCorvane& project);

} // namespace corvane
