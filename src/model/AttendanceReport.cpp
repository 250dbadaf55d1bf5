#include "model/AttendanceReport.h"

#include "model/CsvText.h"
#include "runtime/VyLog.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <set>
#include <utility>

namespace {

constexpr int64_t kSecondsPerHour = 3600;

int64_t floorDiv(int64_t a, int64_t b) {
    return a / b - ((a % b != 0) && ((a < 0) != (b < 0)) ? 1 : 0);
}

} // namespace

int64_t AttendanceReport::workingDay(int64_t time, int dayStartHour) {
    const int hour = std::clamp(dayStartHour, 0, 23);
    return floorDiv(time - hour * kSecondsPerHour, kSecondsPerDay);
}

std::string AttendanceReport::dateText(int64_t day) {
    // Civil date from a day count (proleptic Gregorian), era by era of 400 years.
    const int64_t z = day + 719468;
    const int64_t era = floorDiv(z, 146097);
    const int64_t doe = z - era * 146097;
    const int64_t yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const int64_t doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const int64_t mp = (5 * doy + 2) / 153;
    const int64_t d = doy - (153 * mp + 2) / 5 + 1;
    const int64_t m = mp < 10 ? mp + 3 : mp - 9;
    const int64_t y = yoe + era * 400 + (m <= 2 ? 1 : 0);
    char buf[64]; // room for any 64-bit year, so the format is never cut
    std::snprintf(buf, sizeof buf, "%04lld-%02lld-%02lld", static_cast<long long>(y),
                  static_cast<long long>(m), static_cast<long long>(d));
    return buf;
}

std::string AttendanceReport::timeText(int64_t time) {
    const int64_t s = time - floorDiv(time, kSecondsPerDay) * kSecondsPerDay;
    char buf[16];
    std::snprintf(buf, sizeof buf, "%02d:%02d:%02d", int(s / 3600), int(s / 60 % 60), int(s % 60));
    return buf;
}

std::vector<AttendanceReport::Row>
AttendanceReport::build(const std::vector<FaceRecognition>& recognitions, const NameOf& nameOf,
                        const Options& options) {
    std::map<std::pair<int64_t, uint32_t>, Row> rows; // by (day, face)
    std::map<uint32_t, std::optional<VyString>> names;
    for (const FaceRecognition& r : recognitions) {
        if (r.faceId == FaceRecognition::kStranger || r.similarity < options.minSimilarity ||
            r.channel >= 64 || (options.channelMask & (uint64_t(1) << r.channel)) == 0)
            continue;
        auto known = names.find(r.faceId);
        if (known == names.end()) {
            known = names.emplace(r.faceId, nameOf ? nameOf(r.faceId) : std::nullopt).first;
            if (!known->second)
                VY_GUI_LOG("attendance: face %u is not in the library, left out\n", r.faceId);
        }
        if (!known->second)
            continue;
        const int64_t day = workingDay(r.time, options.dayStartHour);
        auto [it, fresh] = rows.try_emplace({day, r.faceId});
        Row& row = it->second;
        if (fresh) {
            row.faceId = r.faceId;
            row.name = *known->second;
            row.day = day;
            row.checkIn = r.time;
        }
        // App's order is not trusted to be by time.
        if (!fresh) {
            const int64_t first = std::min(row.checkIn, r.time);
            const int64_t last = std::max(row.checkOut < 0 ? row.checkIn : row.checkOut, r.time);
            row.checkIn = first;
            row.checkOut = last;
        }
        ++row.count;
    }
    std::vector<Row> out;
    out.reserve(rows.size());
    for (auto& [key, row] : rows)
        out.push_back(std::move(row));
    std::stable_sort(out.begin(), out.end(), [](const Row& a, const Row& b) {
        if (a.day != b.day)
            return a.day < b.day;
        if (a.name < b.name || b.name < a.name)
            return a.name < b.name;
        return a.faceId < b.faceId;
    });
    return out;
}

std::string AttendanceReport::toCsv(const std::vector<Row>& rows) {
    std::string out = "Name,Date,Check-in,Check-out,Recognitions\r\n";
    for (const Row& r : rows) {
        out += CsvText::field(r.name.toStdString()) + "," + dateText(r.day) + "," +
               dateText(floorDiv(r.checkIn, kSecondsPerDay)) + " " + timeText(r.checkIn) + ",";
        if (r.checkOut >= 0)
            out += dateText(floorDiv(r.checkOut, kSecondsPerDay)) + " " + timeText(r.checkOut);
        out += "," + std::to_string(r.count) + "\r\n";
    }
    return out;
}
