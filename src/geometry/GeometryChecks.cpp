#include "geometry/GeometryChecks.h"

namespace corvane::geometry {

void ThrowSubscriptOutOfRange() {
    throw CorvaneError(ErrorNumber::SubscriptOutOfRange, "Subscript out of range");
}

} // namespace corvane::geometry
