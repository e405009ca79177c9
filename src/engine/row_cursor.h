#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <variant>

#include "engine/value.h"

namespace snippetarium {

/// A value for a parameter of a statement, ?1, ?2 and so on; std::monostate is null. A text must
/// live as long as the statement runs.
using BoundValue = std::variant<std::int64_t, std::string_view, std::monostate>;

/// Reads the rows of a statement one by one, where a Recordset with all of them would be too much:
/// a reader that looks at many rows and keeps few. Unlike a recordset it is in the middle of a
/// read: while it lives, other statements may read, but nothing may be written. Take what is wanted
/// and let it go.
///
///     const auto row = connection.OpenCursor("SELECT code FROM tblCode WHERE codeID > ?1", id);
///     while (row->Next()) Use(row->Text(0));
class RowCursor {
  public:
    virtual ~RowCursor() = default;
    /// To the next row, at first the first one. False behind the last. Throws EngineError.
    virtual bool Next() = 0;
    /// A field of the current row; null is 0 and the empty text. A text lives until the next call
    /// of Next.
    virtual std::int64_t Number(std::size_t column) const = 0;
    virtual std::string_view Text(std::size_t column) const = 0;
};

}  // namespace snippetarium
