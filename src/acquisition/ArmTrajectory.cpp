#include "acquisition/ArmTrajectory.h"

#include "files/FileAccess.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>

namespace corvane {
namespace {

std::string_view Trim(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t'))
        text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t' || text.back() == '\r'))
        text.remove_suffix(1);
    return text;
}

template <class T> bool ParseField(std::string_view text, T& value) {
    text = Trim(text);
    if (!text.empty() && text.front() == '+')
        text.remove_prefix(1);
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    return result.ec == std::errc() && result.ptr == text.data() + text.size();
}

std::string TimeText(double ms) {
    char buffer[32];
    const double whole = std::nearbyint(ms);
    const auto result = whole == ms && std::fabs(ms) < 1e15
                            ? std::to_chars(buffer, buffer + sizeof buffer, static_cast<std::int64_t>(whole))
                            : std::to_chars(buffer, buffer + sizeof buffer, ms);
    return std::string(buffer, result.ptr);
}

// Splits a data row into its five fields; false when it has another number of fields.
bool SplitRow(std::string_view line, std::string_view (&fields)[5]) {
    std::size_t start = 0;
    for (int i = 0; i < 5; ++i) {
        const std::size_t comma = line.find(',', start);
        if ((comma == std::string_view::npos) != (i == 4))
            return false;
        fields[i] =
            line.substr(start, comma == std::string_view::npos ? std::string_view::npos : comma - start);
        start = comma + 1;
    }
    return true;
}

} // namespace

bool ArmTrajectory::Add(const ArmSample& sample) {
    if (!std::isfinite(sample.timeMs) || (!samples_.empty() && sample.timeMs <= samples_.back().timeMs) ||
        sample.pedal < 0 || sample.pedal > kPedalMaximum)
        return false;
    samples_.push_back(sample);
    return true;
}

bool ArmTrajectory::ReplaceLast(const ArmSample& sample) {
    if (samples_.empty() || sample.timeMs != samples_.back().timeMs || sample.pedal < 0 ||
        sample.pedal > kPedalMaximum)
        return false;
    samples_.back() = sample;
    return true;
}

ArmPosition ArmTrajectory::At(double timeMs) const {
    if (samples_.empty())
        return {};
    const auto position = [](const ArmSample& s) {
        return ArmPosition{static_cast<double>(s.angle), static_cast<double>(s.radius),
                           static_cast<double>(s.drop), s.pedal};
    };
    if (timeMs <= samples_.front().timeMs)
        return position(samples_.front());
    if (timeMs >= samples_.back().timeMs)
        return position(samples_.back());
    // The first sample after the moment; the one before it exists since the moment is inside.
    const auto next = std::upper_bound(samples_.begin(), samples_.end(), timeMs,
                                       [](double t, const ArmSample& s) { return t < s.timeMs; });
    const ArmSample& a = *(next - 1);
    const ArmSample& b = *next;
    const double f = (timeMs - a.timeMs) / (b.timeMs - a.timeMs);
    const auto lerp = [f](std::int64_t from, std::int64_t to) {
        return static_cast<double>(from) + f * static_cast<double>(to - from);
    };
    return ArmPosition{lerp(a.angle, b.angle), lerp(a.radius, b.radius), lerp(a.drop, b.drop), a.pedal};
}

std::string FormatArmTrajectory(const ArmTrajectory& trajectory) {
    std::string text;
    text.reserve(trajectory.Samples().size() * 32 + 64);
    for (const std::string& comment : trajectory.comments)
        text += "# " + comment + "\n";
    text += kArmTrajectoryHeader;
    text += "\n";
    for (const ArmSample& s : trajectory.Samples()) {
        text += TimeText(s.timeMs);
        for (const std::int64_t v : {s.angle, s.radius, s.drop, static_cast<std::int64_t>(s.pedal)}) {
            text += ',';
            text += std::to_string(v);
        }
        text += '\n';
    }
    return text;
}

bool ParseArmTrajectory(const std::string& text, ArmTrajectory& trajectory, std::string& error) {
    trajectory = ArmTrajectory{};
    bool headerSeen = false;
    int lineNumber = 0;
    const auto fail = [&](const std::string& why) {
        error = "line " + std::to_string(lineNumber) + ": " + why;
        trajectory = ArmTrajectory{};
        return false;
    };
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t end = text.find('\n', start);
        if (end == std::string::npos)
            end = text.size();
        const std::string_view line = Trim(std::string_view(text).substr(start, end - start));
        start = end + 1;
        ++lineNumber;
        if (line.empty())
            continue;
        if (line.front() == '#') {
            if (!headerSeen)
                trajectory.comments.emplace_back(Trim(line.substr(1)));
            continue;
        }
        if (!headerSeen) {
            if (line != kArmTrajectoryHeader)
                return fail(std::string("the header must read \"") + kArmTrajectoryHeader + "\"");
            headerSeen = true;
            continue;
        }
        std::string_view fields[5];
        if (!SplitRow(line, fields))
            return fail("a row has five values: time_ms,angle,radius,drop,pedal");
        ArmSample sample;
        if (!ParseField(fields[0], sample.timeMs) || !std::isfinite(sample.timeMs))
            return fail("the time is not a number");
        if (!ParseField(fields[1], sample.angle) || !ParseField(fields[2], sample.radius) ||
            !ParseField(fields[3], sample.drop))
            return fail("positions are whole numbers of counts");
        if (!ParseField(fields[4], sample.pedal) || sample.pedal < 0 || sample.pedal > kPedalMaximum)
            return fail("the pedal is a whole number from 0 to 4095");
        if (!trajectory.Add(sample))
            return fail("the time does not increase");
    }
    if (!headerSeen) {
        error = std::string("no header line \"") + kArmTrajectoryHeader + "\"";
        return false;
    }
    if (trajectory.Empty()) {
        error = "no samples";
        return false;
    }
    return true;
}

bool ReadArmTrajectory(const std::string& path, ArmTrajectory& trajectory, std::string& error) {
    std::string bytes;
    if (!ReadFileBytes(path, bytes)) {
        trajectory = ArmTrajectory{};
        error = "cannot be read";
        return false;
    }
    return ParseArmTrajectory(bytes, trajectory, error);
}

bool WriteArmTrajectory(const std::string& path, const ArmTrajectory& trajectory, std::string& error) {
    if (!WriteFileAtomically(path, FormatArmTrajectory(trajectory))) {
        error = "cannot be written";
        return false;
    }
    return true;
}

} // namespace corvane
