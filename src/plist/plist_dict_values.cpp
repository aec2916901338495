#include "framework/text/text.h"
#include "plist/plist_dict.h"

namespace bracken {

bool plistDict::store(std::string_view key, std::string_view accepted, std::string_view tag,
                      std::string value) {
    // The key may refer to a text in the tree or to the error message, which change here.
    std::string own(key);
    if (CheckType(own, accepted) == 0) return false;
    put(own, tag, std::move(value));
    return true;
}

void plistDict::put(std::string_view key, std::string_view tag, std::string value) {
    values.Value(key, std::move(value));
    types.Value(key, std::string(tag));
    searched.Value(key, false);
}

void plistDict::SetString(std::string_view key, const std::string& value) {
    store(key, "string", "string", value);
}

void plistDict::SetInteger(std::string_view key, double value) {
    store(key, "integer", "integer", Format(value, "-#"));
}

void plistDict::SetBoolean(std::string_view key, bool value) {
    store(key, "boolean", "boolean", value ? "true" : "false");
    indexOf = -1;
}

std::string plistDict::GetValue(std::string_view key, const std::string& missing) {
    if (!Exists(key)) SetString(key, missing);
    SetError(false, "");
    const std::string* value = values.find(key);
    if (value != nullptr) return TypeOK(key) ? *value : "";
    SetError(true, "Key " + std::string(key) + " does not exist");
    return "";
}

std::string plistDict::GetValue(std::string_view key) {
    return GetValue(key, "");
}

std::string plistDict::GetString(std::string_view key, const std::string& missing) {
    if (!Exists(key)) SetString(key, missing);
    return GetValue(key);
}

std::string plistDict::GetString(std::string_view key) {
    return GetString(key, "");
}

int32_t plistDict::GetInteger(std::string_view key, int32_t missing) {
    if (!Exists(key)) SetInteger(key, missing);
    return toInt32(getNumber(key));
}

double plistDict::getNumber(std::string_view key) {
    if (!TypeOK(key)) return 0;
    if (equal(types.Value(key), "date")) {
        SetError(true, "Type Mismatch: " + std::string(key) + " is a date");
        return -1;
    }
    return CDbl(GetValue(key));
}

int32_t plistDict::GetInteger(std::string_view key) {
    return GetInteger(key, 0);
}

bool plistDict::GetBoolean(std::string_view key, bool missing) {
    if (!Exists(key)) SetBoolean(key, missing);
    const std::string& tag = types.Value(key);
    if (!equal(tag, "boolean")) {
        SetError(true, "Type Mismatch: " + std::string(key) + " is a " + tag);
        return false;
    }
    return equal(GetValue(key), "true");
}

bool plistDict::GetBoolean(std::string_view key) {
    return GetBoolean(key, true);
}

}  // namespace bracken
