#pragma once

#include <cstdint>
#include <string>

#include "support/error.h"

namespace snippetarium {

/// Numbers of the engine's failures. They are the numbers by which the database engine of this
/// catalogue's dialect has always been known, so that a number in a report can be looked up.
enum class EngineErrorCode : std::int32_t {
    Unexpected = 3000,
    NoCurrentRecord = 3021,
    DuplicateValue = 3022,
    FileNotFound = 3024,
    ReadOnly = 3027,
    NotAllowed = 3033,
    DiskError = 3043,
    Corrupted = 3049,
    CannotLock = 3050,
    CannotOpen = 3051,
    Cancelled = 3059,
    WrongParameters = 3061,
    Syntax = 3075,
    NoSuchTable = 3078,
    NoSuchFunction = 3085,
    InvalidPattern = 3093,
    InvalidStatement = 3129,
    TextAfterStatement = 3142,
    DiskFull = 3183,
    FieldNotFound = 3265,
    UnrecognisedFormat = 3343,
    WrongValueCount = 3346,
    OpenElsewhere = 3356,
    QueryTooComplex = 3360,
    TypeConversion = 3421,
    ObjectClosed = 3704,
    ObjectOpen = 3705,
    ProviderNotFound = 3706,
};

/// A failure of the database engine. The text is for the user: it says what is wrong and, where
/// something can be done, what to do.
class EngineError : public Error {
  public:
    EngineError(EngineErrorCode code, const std::string& description)
        : Error(static_cast<std::int32_t>(code), description) {}

    EngineErrorCode Code() const { return static_cast<EngineErrorCode>(Number()); }
};

}  // namespace snippetarium
