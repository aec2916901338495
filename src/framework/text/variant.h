#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "framework/text/text.h"

namespace bracken {

// A value of one of several types.
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

    // Nothing is 0, a text what CDbl makes of it, true is 1.
    double DoubleValue() const;
    std::string StringValue() const;
    // DoubleValue as a whole number.
    int32_t IntegerValue() const { return toInt32(DoubleValue()); }

  private:
    friend int VarType(const Variant& value);
    friend bool IsNumeric(const Variant& value);

    std::variant<std::monostate, int32_t, int64_t, float, double, bool, std::string> value_;
};

// 0 nothing, 2 and 3 whole numbers of 32 and 64 bits, 4 single, 5 double, 8 text, 11 truth value.
int VarType(const Variant& value);
// Whether it is a number, or a text that is a decimal number as a whole.
bool IsNumeric(const Variant& value);

}  // namespace bracken
