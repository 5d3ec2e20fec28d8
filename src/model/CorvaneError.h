#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace corvane {

// Error numbers the handler classifies. They keep the historic numbering of the station
// software so that Error.log lines from older stations and from this one read alike.
namespace ErrorNumber {
inline constexpr int InvalidProcedureCall = 5;
inline constexpr int Overflow = 6;
inline constexpr int OutOfMemory = 7;
inline constexpr int SubscriptOutOfRange = 9;
inline constexpr int DivisionByZero = 11;
inline constexpr int TypeMismatch = 13;
inline constexpr int BadFileName = 52;
inline constexpr int FileNotFound = 53;
inline constexpr int FileAlreadyInUse = 70;
inline constexpr int DiskNotReady = 71;
inline constexpr int PathFileAccessError = 75;
inline constexpr int CommonDialogCancelled = 32755;
} // namespace ErrorNumber

// The one exception type of the core: an error number, a description and a source, as the
// error handler logs and shows them. Standard exceptions are mapped onto numbers by the handler.
class CorvaneError : public std::runtime_error {
public:
    CorvaneError(int number, const std::string& description, std::string source = "Corvane",
                 long lastDllError = 0)
        : std::runtime_error(description), number_(number), source_(std::move(source)),
          lastDllError_(lastDllError) {}

    int Number() const { return number_; }
    std::string Description() const { return what(); }
    const std::string& Source() const { return source_; }
    long LastDllError() const { return lastDllError_; }

private:
    int number_;
    std::string source_;
    long lastDllError_;
};

// Counts are held in 32 bits and read in 16: a count beyond the 16-bit range is an overflow
// error, never a silently wrapped number.
inline std::int16_t CheckedInt16(long long value) {
    if (value < INT16_MIN || value > INT16_MAX) {
        throw CorvaneError(ErrorNumber::Overflow, "Overflow");
    }
    return static_cast<std::int16_t>(value);
}

} // namespace corvane
