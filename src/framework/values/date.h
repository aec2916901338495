#pragma once

#include <cstdint>
#include <string_view>

namespace bracken {

// A local date and time. The fields are not checked against one another.
struct Date {
    // Now.
    Date();

    int32_t Year = 0;
    int32_t Month = 0;
    int32_t Day = 0;
    int32_t Hour = 0;
    int32_t Minute = 0;
    int32_t Second = 0;
};

// Sets `date` to midnight of the day that the text gives as month/day/year, in digits. False, with
// `date` unchanged, if the text has another form or the calendar no such day.
bool ParseDate(std::string_view text, Date& date);

}  // namespace bracken
