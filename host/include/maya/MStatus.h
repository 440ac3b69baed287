#pragma once

#include <maya/MTypes.h>

#include <iosfwd>

class MString;

/// How a call ended. Small and trivially copied, since every call of the API hands one out.
class MStatus {
public:
    enum MStatusCode {
        kSuccess = 0,
        kFailure,
        kInsufficientMemory,
        kInvalidParameter,
        kLicenseFailure,
        kUnknownParameter,
        kNotImplemented,
        kNotFound,
        kEndOfFile
    };

    constexpr MStatus() = default; // success
    constexpr MStatus(MStatusCode code) : code_(code) {}

    constexpr bool operator==(const MStatus& other) const { return code_ == other.code_; }
    constexpr bool operator==(MStatusCode code) const { return code_ == code; }
    constexpr bool operator!=(const MStatus& other) const { return code_ != other.code_; }
    constexpr bool operator!=(MStatusCode code) const { return code_ != code; }
    friend constexpr bool operator==(MStatusCode code, const MStatus& status) { return status.code_ == code; }
    friend constexpr bool operator!=(MStatusCode code, const MStatus& status) { return status.code_ != code; }

    /// True on success.
    constexpr operator bool() const { return code_ == kSuccess; }
    constexpr bool error() const { return code_ != kSuccess; }
    constexpr MStatusCode statusCode() const { return code_; }
    void clear() { *this = MStatus(); }

    /// "(kFailure): " and the text of `set`, or a general one of the code.
    MString errorString() const;
    /// Writes "context: errorString()" and a line end to the error stream, for a success as well.
    void perror(const char* context) const;
    /// A `success` makes the code kSuccess whatever `code` says, and a failure given with kSuccess becomes kFailure.
    /// The text (null: none) is kept by the host for its lifetime.
    void set(bool success, MStatusCode code, const char* text);

private:
    MStatusCode code_ = kSuccess;
    const char* text_ = nullptr; // owned by the host
};

typedef MStatus MS;

/// Writes errorString().
std::ostream& operator<<(std::ostream& stream, const MStatus& status);

namespace host::api {

/// On failure writes the place and the status to the error stream. Returns whether it was a success.
bool checkStatus(const MStatus& status, const char* file, int line);

} // namespace host::api

#define CHECK_MSTATUS(status) static_cast<void>(::host::api::checkStatus((status), __FILE__, __LINE__))

#define CHECK_MSTATUS_AND_RETURN(status, value)                                                                        \
    do {                                                                                                               \
        if (!::host::api::checkStatus((status), __FILE__, __LINE__)) {                                                 \
            return (value);                                                                                            \
        }                                                                                                              \
    } while (false)

#define CHECK_MSTATUS_AND_RETURN_IT(status)                                                                            \
    do {                                                                                                               \
        const MStatus hostCheckedStatus = (status);                                                                    \
        if (!::host::api::checkStatus(hostCheckedStatus, __FILE__, __LINE__)) {                                        \
            return hostCheckedStatus;                                                                                  \
        }                                                                                                              \
    } while (false)
