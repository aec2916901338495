#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace bracken::test {

// Sets a variable of the environment for a scope.
class Variable {
  public:
    Variable(const char* name, const std::optional<std::string>& value) : name_(name) {
        if (const char* before = std::getenv(name)) before_ = before;
        set(value);
    }
    ~Variable() { set(before_); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

  private:
    void set(const std::optional<std::string>& value) const {
        if (value)
            setenv(name_, value->c_str(), 1);
        else
            unsetenv(name_);
    }

    const char* name_;
    std::optional<std::string> before_;
};

}  // namespace bracken::test
