#include "framework/text/variant.h"

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

}  // namespace

double Variant::DoubleValue() const {
    return std::visit(ToDouble(), value_);
}

int VarType(const Variant& value) {
    constexpr std::array<int, 7> codes = {0, 2, 3, 4, 5, 11, 8};
    return codes[value.value_.index()];
}

}  // namespace bracken
