#pragma once

#include "com/api.h"
#include "com/check.h"
#include "com/ptr.h"

#include <stdexcept>

#include <oaidl.h>

namespace com {

/// A failed `HRESULT`. `what()` is the description of the error object if it has one, else the system's
/// message for the code with the line end that it comes with, else a text that names the code.
class MOSSHARBOUR_API error : public std::runtime_error {
public:
    /// Takes a reference on `info`, which may be null.
    error(HRESULT result, IErrorInfo* info);

    /// The failed result.
    HRESULT hresult;
    /// The rich error object of the failure, or null. A copy of the exception holds a reference of its own.
    ptr<IErrorInfo> error_info;
};

}  // namespace com
