#pragma once

namespace corvane::test {

// Puts every piece of program-wide state of the core back as it is before start-up: the
// globals, the error handler, the ISO status cells, the installed services and their stand-ins,
// the spline fit holds, open file batches, the file write steps and the library's copier. Every
// test fixture calls it on both ends of a case, so no case sees what another left behind.
void ResetProgramState();

} // namespace corvane::test
