#include "framework/text/text.h"
#include "plist/plist_dict.h"

namespace bracken {

namespace {

std::string colorText(Color color) {
    return Hex(color.red) + Hex(color.green) + Hex(color.blue);
}

int hexPair(const std::string& digits) {
    return toInt32(CDbl("&h" + digits));
}

void setTime(Date& date, std::string_view time) {
    date.Hour = toInt32(CDbl(NthField(time, ":", 1)));
    date.Minute = toInt32(CDbl(NthField(time, ":", 2)));
    date.Second = toInt32(CDbl(NthField(time, ":", 3)));
}

}  // namespace

void plistDict::SetDouble(std::string_view key, double value) {
    store(key, "real", "real", Str(value));
}

void plistDict::SetReal(std::string_view key, double value) {
    store(key, "double", "real", Str(value));
}

void plistDict::SetData(std::string_view key, const std::string& value) {
    put(std::string(key), "data", value);
}

void plistDict::SetDate(std::string_view key, const Ref<Date>& date) {
    if (CheckType(key, "date") != 0) put(std::string(key), "date", dateText(*date));
}

std::string plistDict::dateText(const Date& date) const {
    return Str(date.Year) + "-" + MakeTwo(date.Month) + "-" + MakeTwo(date.Day) + "T" +
           MakeTwo(date.Hour) + ":" + MakeTwo(date.Minute) + ":" + MakeTwo(date.Second) + "Z";
}

void plistDict::SetColor(std::string_view key, Color color) {
    if (store(key, "string", "string", colorText(color))) indexOf = -1;
}

std::string plistDict::GetData(std::string_view key, const std::string& missing) {
    if (!Exists(key)) SetString(key, missing);
    return GetValue(key);
}

std::string plistDict::GetData(std::string_view key) {
    return GetData(key, "");
}

double plistDict::GetDouble(std::string_view key, double missing) {
    if (!Exists(key)) SetDouble(key, missing);
    return getNumber(key);
}

double plistDict::GetDouble(std::string_view key) {
    return GetDouble(key, 0);
}

double plistDict::GetReal(std::string_view key, double missing) {
    if (!Exists(key)) SetReal(key, missing);
    return getNumber(key);
}

double plistDict::GetReal(std::string_view key) {
    return GetReal(key, 0);
}

Ref<Date> plistDict::GetDate(std::string_view key, const Ref<Date>& missing) {
    if (!Exists(key)) SetDate(key, missing);
    if (!TypeOK(key)) return nullptr;
    auto date = make<Date>();
    std::string text = GetValue(key);
    int64_t t = InStr(text, "T");
    std::string day = t == 0 ? text : Left(text, t - 1);
    std::string time = t == 0 ? "" : Mid(text, t + 1);
    if (equal(Right(time, 1), "Z")) time.pop_back();
    std::string monthFirst =
        NthField(day, "-", 2) + "/" + NthField(day, "-", 3) + "/" + NthField(day, "-", 1);
    if (!ParseDate(monthFirst, *date)) {
        SetError(true, "Could not create date object from " + std::string(key) + "(" + text + ")");
    } else if (!time.empty()) {
        setTime(*date, time);
    }
    return date;
}

Ref<Date> plistDict::GetDate(std::string_view key) {
    return GetDate(key, make<Date>());
}

void plistDict::AppendColor(Color color) {
    append("string", colorText(color));
}

Color plistDict::GetColor(std::string_view key, Color missing) {
    if (!Exists(key)) SetColor(key, missing);
    const std::string& tag = types.Value(key);
    if (!equal(tag, "string")) {
        SetError(true, "Type Mismatch: " + std::string(key) + " is a " + tag);
        return RGB(0, 0, 0);
    }
    std::string text = GetValue(key);
    return RGB(hexPair(Left(text, 2)), hexPair(Mid(text, 3, 2)), hexPair(Right(text, 2)));
}

Color plistDict::GetColor(std::string_view key) {
    return GetColor(key, RGB(0, 0, 0));
}

}  // namespace bracken
