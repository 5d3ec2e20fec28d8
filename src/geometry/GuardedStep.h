#pragma once

#include "support/Services.h"
#include "support/modErrorHandler.h"

namespace corvane {

// Runs one step of a geometry procedure under the common error handler: Retry runs the step
// again, Ignore and Abort give false so that the procedure can give failure and leave.
//
// The same contract as ErrorTail, but the context stays a literal until a step fails. The
// spline's evaluation runs this once per query and per colinear test, thousands of times for
// one section, and should not build a string each time.
template <typename F> bool GuardedStep(const char* context, F&& step) {
    for (;;) {
        try {
            step();
            return true;
        } catch (...) {
            if (HandleError(context) == Answer::Retry) {
                continue;
            }
            return false;
        }
    }
}

} // namespace corvane
