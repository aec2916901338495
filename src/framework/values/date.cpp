#include "framework/values/date.h"

#include <chrono>
#include <ctime>

#include "framework/text/text.h"

namespace bracken {

namespace {

bool isDigits(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == text.npos;
}

bool isDay(int32_t year, int32_t month, int32_t day) {
    using namespace std::chrono;
    // The calendar's types can't hold larger numbers.
    if (year < 1 || year > 9999 || month > 12 || day > 31) return false;
    return year_month_day(std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                          std::chrono::day(static_cast<unsigned>(day)))
        .ok();
}

}  // namespace

Date::Date() {
    std::time_t now = std::time(nullptr);
    std::tm fields{};
    localtime_r(&now, &fields);
    Year = fields.tm_year + 1900;
    Month = fields.tm_mon + 1;
    Day = fields.tm_mday;
    Hour = fields.tm_hour;
    Minute = fields.tm_min;
    Second = fields.tm_sec;
}

bool ParseDate(std::string_view text, Date& date) {
    std::vector<std::string> fields = Split(text, "/");
    if (fields.size() != 3) return false;
    for (const std::string& field : fields) {
        if (!isDigits(field)) return false;
    }
    int32_t month = toInt32(CDbl(fields[0]));
    int32_t day = toInt32(CDbl(fields[1]));
    int32_t year = toInt32(CDbl(fields[2]));
    if (!isDay(year, month, day)) return false;
    date.Year = year;
    date.Month = month;
    date.Day = day;
    date.Hour = date.Minute = date.Second = 0;
    return true;
}

}  // namespace bracken
