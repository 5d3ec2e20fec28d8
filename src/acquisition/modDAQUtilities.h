#pragma once

// Every call the station makes to the encoder box: discovery, programming of the counters and of
// the FIFO log, raw reads of the counters and the pedal, and the drain of the log into a section.
// The state lives in one DAQState per box; nothing else talks to an IEncoderBox.
//
// Calls go to the box only while exactly one box was found (DAQAvailable): with none, or with two
// (deliberately treated like none), DAQDeviceNo stays -1, nothing is called, counts read zero and
// the log stays empty.

#include "acquisition/IEncoderBox.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace corvane {

class clsSection;
class clsUnits;
struct StationSettings;

struct DAQState {
    explicit DAQState(IEncoderBox& encoderBox) : box(&encoderBox) {}

    IEncoderBox* box;
    std::int16_t deviceCount = 0;
    std::int16_t deviceNo = -1;
    bool available = false;
    // The last unwrapped radius and drop counts; zeroed when the counters are reset.
    double lastRadiusCount = 0;
    double lastDropCount = 0;
    bool fifoRunning = false;
    // The receive buffer of the log, allocated at the first drain and never resized.
    std::vector<USB4FIFORecord> fifoRecords;
};

// Radius and drop counts run free in 24 bits; this unwraps one against the channel's last value.
// The test is one-sided on purpose: a step down through zero shows as a jump of more than half
// the span and becomes a small negative count; the step back up is an ordinary difference.
double UnwrapCount(double value, double& last);

// 1 when exactly one box answered, else 0.
int DAQDiscover(DAQState& daq);
// Programs angle (modulo one turn), radius and drop (plain 24-bit) and resets them. 1, or 0
// without a box.
int DAQConfigureCounters(DAQState& daq, const StationSettings& station);
// Zeroes the drop counter; the caller zeroes lastDropCount.
void DAQResetDropCounter(DAQState& daq);
void DAQSetAngleCount(DAQState& daq, std::int32_t count);
// All four counters at one moment, radius and drop unwrapped; zeros without a box.
void DAQReadCounts(DAQState& daq, std::array<double, 4>& counts, std::uint32_t& timeStamp);
// Analogue input 0 (the pedal); 0 without a box.
std::int32_t DAQReadA2D(DAQState& daq);
std::int32_t DAQGetFIFOCount(DAQState& daq);
// "Count: " and the records waiting, for the scan page.
std::string DAQFIFOCountText(DAQState& daq);

// Binds the log to analogue input 0 crossing 3500 (rising when trigger is true) and empties it.
void DAQConfigureFIFOLog(DAQState& daq, bool trigger);
// Arms the log, unless it runs already or the foot pedal is off.
void DAQStartFIFO(DAQState& daq, bool footPedal);
void DAQStopFIFO(DAQState& daq);
void DAQStopAcquisition(DAQState& daq);

// Where the drained points go and how they are read.
struct FIFODrainTarget {
    clsSection& section;
    std::int16_t rotationIndex = 0; // 0 right hand: angles grow from trailing to leading edge
    double nominalRadius = 0;       // the arm radius without a radial encoder, project unit
};

// Drains the waiting records into the section from point 0 on, keeping only records whose angle
// moved on in the sweep direction (or jumped by more than 180 degrees through 0/360), and then
// empties the log. With no record waiting the section keeps the points the polling gathered.
// Returns the points stored.
int DAQReadFIFORecords(DAQState& daq, const FIFODrainTarget& target, const StationSettings& station,
                       const clsUnits& units);

} // namespace corvane
