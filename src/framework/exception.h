#pragma once

#include <exception>
#include <string>

namespace bracken {

// Root of all exceptions that program code sees. Nobody in the program catches them: they travel to
// the one default in unhandled.h, which reports type and text and ends the process.
class Exception : public std::exception {
  public:
    Exception(std::string type, std::string text)
        : type_(std::move(type)),
          text_(std::move(text)),
          what_(text_.empty() ? type_ : type_ + ": " + text_) {}

    // Name of the exception's class, as the report shows it.
    const std::string& type() const { return type_; }
    const std::string& text() const { return text_; }
    const char* what() const noexcept override { return what_.c_str(); }

  private:
    std::string type_;
    std::string text_;
    std::string what_;
};

// Use of an object that is not there.
class NilObjectException : public Exception {
  public:
    explicit NilObjectException(std::string text = "")
        : Exception("NilObjectException", std::move(text)) {}
};

// A dictionary was asked for a key that it does not hold.
class KeyNotFoundException : public Exception {
  public:
    explicit KeyNotFoundException(std::string key)
        : Exception("KeyNotFoundException", std::move(key)) {}
};

// Recursion went deeper than any honest input needs; raised by a depth guard, never by a crash.
class StackOverflowException : public Exception {
  public:
    explicit StackOverflowException(std::string text = "")
        : Exception("StackOverflowException", std::move(text)) {}
};

// A row, column or element outside its range.
class IndexOutOfRangeException : public Exception {
  public:
    explicit IndexOutOfRangeException(std::string text = "")
        : Exception("IndexOutOfRangeException", std::move(text)) {}
};

// An object was taken for one of a class that it is not of.
class IllegalCastException : public Exception {
  public:
    explicit IllegalCastException(std::string text = "")
        : Exception("IllegalCastException", std::move(text)) {}
};

// Run was called on a thread whose run is still alive.
class ThreadAlreadyRunningException : public Exception {
  public:
    ThreadAlreadyRunningException() : Exception("ThreadAlreadyRunningException", "") {}
};

// A result that broke off while it was being read; the text is the server's.
class DatabaseException : public Exception {
  public:
    explicit DatabaseException(std::string text)
        : Exception("DatabaseException", std::move(text)) {}
};

}  // namespace bracken
