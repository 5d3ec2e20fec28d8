#pragma once

// What reading a project or scan file gives back: whether the project is usable, the items the
// reader found missing or could not take, and the notices the window shows for them.

#include "support/Notice.h"

#include <string>
#include <vector>

namespace corvane {

struct [[nodiscard]] FileReadResult {
    int status = 0;              // 1 a usable project (with or without a notice), 0 not
    std::string collected;       // the items collected, each after a CR LF
    std::vector<Notice> notices; // in the order the window shows them
    // Also nothing that failed was ignored by the user (the error handler had its say then).
    bool abandoned = false;

    bool Usable() const { return status == 1; }
    // The last item collected: a reader stops at the item it could not do without, which it
    // collects last. Empty when nothing was collected.
    std::string Reason() const;
};

} // namespace corvane
