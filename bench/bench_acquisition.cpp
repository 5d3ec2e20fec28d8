// What the acquisition costs on the 10 ms timer of the Scan page.
// Targets, release build: one tick of the workflow during a sweep, without drawing, in at most
// 0.5 ms (the simulated box moving on 10 ms of its log included); draining 100,000 records of the
// box's log into a section in at most 20 ms.

#include <benchmark/benchmark.h>

#include "acquisition/NoEncoderBox.h"
#include "acquisition/ScanWorkflow.h"
#include "acquisition/SimulatedEncoderBox.h"
#include "acquisition/modDAQUtilities.h"
#include "iso484/clsISO484.h"
#include "iso484/modISO484.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "model/clsSection.h"
#include "model/clsUnits.h"

#include <memory>
#include <vector>

using namespace corvane;

namespace {

StationSettings Station() {
    StationSettings station;
    station.angleCalibration = 8000;
    station.radiusCalibration = 200;
    station.dropCalibration = 200;
    station.angleEncoderType = station.radiusEncoderType = station.dropEncoderType = 1;
    station.radiusEncoderFlip = station.dropEncoderFlip = true;
    station.footPedal = true;
    return station;
}

// A sweep under way at 0.6R of a 40 in propeller, the log running: every tick keeps a point.
void Tick(benchmark::State& state) {
    auto units = std::make_shared<clsUnits>();
    units->SetPropLengthIndex(2);
    clsCorvane project;
    project.SetUnits(units);
    project.SetMarkedDiameter(40);
    project.SetBladeCount(4);
    clsISO484 iso;
    iso.SetUnits(units);
    iso.SetISOClassIndex(1);
    const StationSettings station = Station();
    std::int16_t blade = 0, radius = 0;
    const ScanContext ctx{project, iso, station, 2, 0, blade, radius, kStandardRadialPositions};

    SimulatedEncoderBox box;
    ScanWorkflow workflow(box);
    workflow.Activate(ctx);
    workflow.AddScan(ctx, DateTime{2026, 11, 22, 9, 0, 0});
    workflow.PressScanButton(ctx); // HOME
    double now = 0, angle = 0;
    box.MoveArm({angle, 12 * 25.4 * 200, 500, 4095}); // the pedal presses GO and starts the log
    box.AdvanceTo(now += 10);
    workflow.Tick(ctx);
    for (auto _ : state) {
        angle -= 5; // the angle counter runs backwards: the angle grows 0.225 degrees a tick
        box.MoveArm({angle, 12 * 25.4 * 200, 500, 0});
        box.AdvanceTo(now += 10);
        benchmark::DoNotOptimize(workflow.Tick(ctx));
        if (workflow.RecordPointCount() > 1500) {
            state.PauseTiming();
            workflow.ReScanLast(ctx); // aborts the sweep; the next tick ends it
            box.AdvanceTo(now += 10);
            workflow.Tick(ctx);
            workflow.PressScanButton(ctx);
            state.ResumeTiming();
        }
    }
}
BENCHMARK(Tick)->Unit(benchmark::kMicrosecond);

// A box whose log holds the same records before every drain.
class FullLogBox : public NoEncoderBox {
public:
    explicit FullLogBox(std::vector<USB4FIFORecord> records) : records_(std::move(records)) {}
    void Initialize(std::int16_t& deviceCount) override { deviceCount = 1; }
    void GetFIFOBufferCount(std::int16_t, std::int32_t& count) override {
        count = static_cast<std::int32_t>(records_.size());
    }
    void ReadFIFOBufferStruct(std::int16_t, std::int32_t& count, USB4FIFORecord* buffer,
                              std::int32_t) override {
        count = std::min<std::int32_t>(count, static_cast<std::int32_t>(records_.size()));
        std::copy_n(records_.begin(), count, buffer);
    }

private:
    std::vector<USB4FIFORecord> records_;
};

// 100 s of sweep at one record a millisecond: the angle moves on one count every four records,
// the drop with it; a quarter of the records are kept.
void DrainFIFO(benchmark::State& state) {
    std::vector<USB4FIFORecord> records(100000);
    for (std::size_t i = 0; i < records.size(); ++i) {
        records[i].counts = {static_cast<std::int32_t>((i / 4) % 8000), 60960,
                             static_cast<std::int32_t>(i / 4), 0};
    }
    FullLogBox box(std::move(records));
    DAQState daq(box);
    DAQDiscover(daq);
    clsUnits inches;
    inches.SetPropLengthIndex(2);
    const StationSettings station = Station();
    clsSection section;
    for (auto _ : state) {
        daq.lastRadiusCount = daq.lastDropCount = 0;
        benchmark::DoNotOptimize(DAQReadFIFORecords(daq, {section, 0, 12}, station, inches));
    }
    state.counters["kept"] = section.RawOffsetCount();
}
BENCHMARK(DrainFIFO)->Unit(benchmark::kMillisecond);

} // namespace
