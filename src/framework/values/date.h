#pragma once

#include <cstdint>
#include <string_view>

namespace bracken {

// A moment in the fields of the local calendar. The fields are not checked against one another.
struct Date {
    // The present moment.
    Date();

    int32_t Year = 0;
    int32_t Month = 0;
    int32_t Day = 0;
    int32_t Hour = 0;
    int32_t Minute = 0;
    int32_t Second = 0;
};

// Sets `date` to midnight of the day that the text names as month/day/year, in digits. False, with
// `date` left as it is, for a text of another form and for no day of the calendar.
bool ParseDate(std::string_view text, Date& date);

}  // namespace bracken
