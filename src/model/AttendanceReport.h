#pragma once
// Attendance from recognised faces: per person and working day the first recognition is the
// check-in and the last the check-out. A working day starts at `dayStartHour` local time,
// not always at midnight, so that a night shift from 22:00 to 06:00 stays one day when the
// day starts at, say, 12:00. Times are seconds since the epoch in local time, as App sends
// them, so no time zone is applied here.
#include "protocol/FaceRecognition.h"
#include "runtime/VyString.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

class AttendanceReport {
public:
    static constexpr int64_t kSecondsPerDay = 86400;

    struct Options {
        int dayStartHour = 0;       // 0..23
        uint32_t minSimilarity = 0; // percent; weaker recognitions do not count
        uint64_t channelMask = ~uint64_t(0);
    };
    struct Row {
        uint32_t faceId = 0;
        VyString name;
        int64_t day = 0;       // days since 1970-01-01 of the working day's start
        int64_t checkIn = 0;   // seconds since the epoch, local time
        int64_t checkOut = -1; // -1: recognised once only, no check-out
        int count = 0;
    };
    // The person's name, or nullopt for a face the library does not hold.
    using NameOf = std::function<std::optional<VyString>(uint32_t faceId)>;

    // Rows ordered by day, then name, then face id. Strangers, faces unknown to the library
    // (one log line per face), channels outside the mask and weak matches are left out.
    static std::vector<Row> build(const std::vector<FaceRecognition>& recognitions,
                                  const NameOf& nameOf, const Options& options);
    // The working day a time belongs to.
    static int64_t workingDay(int64_t time, int dayStartHour);
    // "yyyy-MM-dd" of days since 1970-01-01; "HH:mm:ss" of seconds since the epoch.
    static std::string dateText(int64_t day);
    static std::string timeText(int64_t time);
    // Comma-separated, one header line, then one line per row, "\r\n" line ends; names with
    // a comma, a quote or a line break are quoted.
    static std::string toCsv(const std::vector<Row>& rows);
};
