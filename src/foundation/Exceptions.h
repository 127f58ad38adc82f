#pragma once
// The exceptions that strings, lists and files raise. Callers that expect one
// catch it and drop it; the rest reach the program's exception box.

#include <stdexcept>
#include <string>

class Exception : public std::runtime_error {
public:
    explicit Exception(const std::string& message) : std::runtime_error(message) {}
    std::string Message() const { return what(); }
};

class ERangeError : public Exception {
public:
    using Exception::Exception;
};

class EStringListError : public Exception {
public:
    using Exception::Exception;
};

class EFOpenError : public Exception {
public:
    using Exception::Exception;
};

class EFCreateError : public Exception {
public:
    using Exception::Exception;
};
