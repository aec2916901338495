#include "framework/values/variant.h"

#include <array>

namespace bracken {

namespace {

struct ToDouble {
    double operator()(std::monostate) const { return 0; }
    double operator()(const std::string& text) const { return CDbl(text); }
    template <class T>
    double operator()(T value) const {
        return static_cast<double>(value);
    }
};

struct ToString {
    std::string operator()(std::monostate) const { return ""; }
    std::string operator()(bool value) const { return value ? "true" : "false"; }
    std::string operator()(const std::string& text) const { return text; }
    template <class T>
    std::string operator()(T value) const {
        return Str(value);
    }
};

}  // namespace

double Variant::DoubleValue() const {
    return std::visit(ToDouble(), value_);
}

std::string Variant::StringValue() const {
    return std::visit(ToString(), value_);
}

bool IsNumeric(const Variant& value) {
    const auto* text = std::get_if<std::string>(&value.value_);
    if (text != nullptr) return IsNumeric(std::string_view(*text));
    return !std::holds_alternative<std::monostate>(value.value_) &&
           !std::holds_alternative<bool>(value.value_);
}

int VarType(const Variant& value) {
    constexpr std::array<int, 7> codes = {0, 2, 3, 4, 5, 11, 8};
    return codes[value.value_.index()];
}

}  // namespace bracken
