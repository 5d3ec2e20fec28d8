#include "reference/PPPPipeline.h"

#include <utility>

namespace corvane {

namespace {

PPPPipeline& Installed() {
    static PPPPipeline pipeline;
    return pipeline;
}

} // namespace

PPPPipeline SetPPPPipeline(PPPPipeline pipeline) {
    PPPPipeline previous = std::move(Installed());
    Installed() = std::move(pipeline);
    return previous;
}

const PPPPipeline& InstalledPPPPipeline() {
    return Installed();
}

} // namespace corvane
