#include "model/clsProject.h"

// clsProject is header-only; this unit keeps the one-pair-per-class layout and checks that
// the header stands on its own.
