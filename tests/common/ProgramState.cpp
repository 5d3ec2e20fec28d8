#include "common/ProgramState.h"

#include "files/clsFileINI.h"
#include "geometry/clsSplineFitCache.h"
#include "iso484/modISO484Criteria.h"
#include "library/modLibraryFiles.h"
#include "model/Globals.h"
#include "support/Services.h"
#include "support/modErrorHandler.h"

namespace corvane::test {

void ResetProgramState() {
    ResetGlobals();
    ResetErrorHandlerState();
    ClearISOCriteriaStatus();
    ResetServices();
    ResetSplineFitHolds();
    clsFileINI::DiscardAllBatches();
    ResetFileWriteSteps();
    SetFileCopier(nullptr);
}

} // namespace corvane::test
