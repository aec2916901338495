#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "framework/text/text.h"

namespace bracken {

// A value of one of several types, or empty.
class Variant {
  public:
    Variant() = default;
    Variant(int32_t value) : value_(value) {}
    Variant(int64_t value) : value_(value) {}
    Variant(float value) : value_(value) {}
    Variant(double value) : value_(value) {}
    Variant(bool value) : value_(value) {}
    Variant(std::string value) : value_(std::move(value)) {}
    Variant(const char* value) : value_(std::string(value)) {}

    // 0 for an empty Variant, 1 for true, CDbl of a text.
    double DoubleValue() const;
    std::string StringValue() const;
    // DoubleValue as a whole number.
    int32_t IntegerValue() const { return toInt32(DoubleValue()); }

  private:
    friend int VarType(const Variant& value);
    friend bool IsNumeric(const Variant& value);

    std::variant<std::monostate, int32_t, int64_t, float, double, bool, std::string> value_;
};

// 0 empty, 2 int32_t, 3 int64_t, 4 float, 5 double, 8 text, 11 bool.
int VarType(const Variant& value);
// Whether it is a number, or a text that is as a whole a decimal number.
bool IsNumeric(const Variant& value);

}  // namespace bracken
