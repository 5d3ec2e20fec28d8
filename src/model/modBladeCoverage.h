#pragma once

// Which blades and rows of a scan were swept well enough to be measured. A sweep of fewer than
// two offsets has no span: it gives neither a mid-angle nor a pitch.

namespace corvane {

class clsBlades;
class clsPropeller;

// Section row k of the blade holds at least two offsets. Rows beyond the blade's sections hold
// none.
bool SweptRow(clsBlades& blade, int k);

// Some row of the blade holds a sweep.
bool HoldsSweep(clsBlades& blade);

// Every blade that holds a sweep at all holds row k. A blade that was never swept has no span to
// compare and takes no part; otherwise one unswept blade would leave no common row anywhere.
bool RowOnEveryBlade(const clsPropeller& propeller, int k);

// The blade has an effective angle: it holds a sweep in some row that every swept blade holds,
// the span on which blades are compared. A blade without one stands nowhere and takes no part in
// the blade spacing.
bool HasEffectiveBladeAngle(const clsPropeller& propeller, int blade);

} // namespace corvane
