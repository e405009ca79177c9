#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/value.h"

namespace snippetarium {

/// The rows of a finished read, all of them, with a cursor that goes forward. Nothing that happens
/// to the catalogue while the rows are walked can disturb them.
///
///     for (Recordset row = ...; !row.EndOfFile(); row.MoveNext()) Use(row["className"].Text());
///
/// A default-constructed recordset is the missing one that a failed read gives: closed, at its end,
/// without columns. Reading a field fails with EngineError: FieldNotFound for a column that does
/// not exist, NoCurrentRecord behind the last row, ObjectClosed on a closed recordset.
class Recordset {
  public:
    Recordset() = default;
    Recordset(Recordset&& other) noexcept;
    Recordset& operator=(Recordset&& other) noexcept;
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;
    ~Recordset() = default;

    bool IsOpen() const { return isOpen_; }
    bool EndOfFile() const { return row_ >= rowCount_; }
    void MoveFirst() { row_ = 0; }
    /// To the next row, or behind the last one; there it stays.
    void MoveNext();
    void Close();

    std::size_t RowCount() const { return rowCount_; }
    std::size_t ColumnCount() const { return columns_.size(); }
    const std::string& ColumnName(std::size_t index) const { return columns_.at(index); }

    /// A field of the current row, by its column's name (without regard to case) or place (from 0).
    /// A text in the value lives as long as this recordset is open and not moved from.
    Value operator[](std::string_view column) const;
    Value operator[](std::size_t column) const;

  private:
    friend class RecordsetBuilder;

    /// Sixteen bytes a field. For a text the payload says where it stands in texts_.
    struct Cell {
        std::uint64_t payload = 0;
        std::uint32_t textSize = 0;
        Value::Kind kind = Value::Kind::Null;
    };
    /// So many fields stand in one of cells_, but for the last. A result may have millions of them;
    /// in one row they would be copied again and again as they become more.
    static constexpr std::size_t kCellsTogether = 4096;

    const Cell& CellAt(std::size_t index) const {
        return cells_[index / kCellsTogether][index % kCellsTogether];
    }
    std::string_view TextOf(const Cell& cell) const;

    bool isOpen_ = false;
    std::size_t row_ = 0;
    std::size_t rowCount_ = 0;
    std::vector<std::string> columns_;
    std::vector<std::vector<Cell>> cells_;
    std::vector<std::string> texts_;
};

/// Fills a recordset field by field, row after row.
class RecordsetBuilder {
  public:
    explicit RecordsetBuilder(std::vector<std::string> columns);
    void AddNull();
    void AddInteger(std::int64_t integer);
    void AddReal(double real);
    void AddText(std::string_view text);
    /// The bytes that the fields take so far.
    std::size_t Size() const { return size_; }
    /// The finished recordset, at its first row. The builder is empty afterwards.
    Recordset Take();

  private:
    void Add(const Recordset::Cell& cell);

    Recordset recordset_;
    std::size_t size_ = 0;
};

}  // namespace snippetarium
