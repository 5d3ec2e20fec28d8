#pragma once

// What the drawing benchmarks share: Qt's application object on the offscreen platform (text
// needs one), and the heavy scan checked as CHECK checks it.

#include "BenchProject.h"

#include "check/CheckRun.h"

#include <QGuiApplication>

#include <functional>
#include <stdexcept>

namespace corvane::bench {

inline void EnsureGui() {
    static int argc = 3;
    static char name[] = "corvane-bench";
    static char platform[] = "-platform";
    static char offscreen[] = "offscreen";
    static char* argv[] = {name, platform, offscreen, nullptr};
    static QGuiApplication* app =
        QCoreApplication::instance() == nullptr ? new QGuiApplication(argc, argv) : nullptr;
    (void)app;
}

// The 7-bladed bench propeller at 2,000 points a section with its required fields; `setUp`
// may choose a reference or criteria before the check runs.
inline void StartHeavyProject(const std::function<void()>& setUp = {}, bool forReport = false) {
    StartBenchProject(BenchPropeller(7), 2000);
    gProject->SetProjectID("BENCH");
    gProject->SetCustomer("Bench");
    gProject->SetMarkedPitch("2300");
    if (setUp)
        setUp();
    CheckRequest request;
    request.forReport = forReport;
    if (!RunCheck(*gProject, *gISO484, request).Passed())
        throw std::runtime_error("the bench scan does not pass the check");
}

} // namespace corvane::bench
