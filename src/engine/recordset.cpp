#include "engine/recordset.h"

#include <bit>
#include <utility>

#include "engine/engine_error.h"
#include "support/case_fold.h"

namespace snippetarium {

Recordset::Recordset(Recordset&& other) noexcept {
    *this = std::move(other);
}

// A recordset moved from is a closed one, so that it can never be read by mistake.
Recordset& Recordset::operator=(Recordset&& other) noexcept {
    if (this == &other) return *this;
    isOpen_ = std::exchange(other.isOpen_, false);
    row_ = std::exchange(other.row_, 0);
    rowCount_ = std::exchange(other.rowCount_, 0);
    columns_ = std::exchange(other.columns_, {});
    cells_ = std::exchange(other.cells_, {});
    text_ = std::exchange(other.text_, {});
    return *this;
}

void Recordset::MoveNext() {
    if (!EndOfFile()) ++row_;
}

void Recordset::Close() {
    *this = Recordset();
}

Value Recordset::operator[](std::string_view column) const {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (EqualsIgnoringAsciiCase(columns_[i], column)) return (*this)[i];
    }
    if (!isOpen_) {
        throw EngineError(EngineErrorCode::ObjectClosed,
                          "A field of a recordset that is closed was asked for.");
    }
    throw EngineError(EngineErrorCode::FieldNotFound,
                      "The result has no column '" + std::string(column) + "'.");
}

Value Recordset::operator[](std::size_t column) const {
    if (!isOpen_) {
        throw EngineError(EngineErrorCode::ObjectClosed,
                          "A field of a recordset that is closed was asked for.");
    }
    if (column >= columns_.size()) {
        throw EngineError(EngineErrorCode::FieldNotFound,
                          "The result has no column number " + std::to_string(column) + ".");
    }
    if (EndOfFile()) {
        throw EngineError(EngineErrorCode::NoCurrentRecord,
                          "There is no current record: the result is empty or read to its end.");
    }
    const Cell& cell = cells_[row_ * columns_.size() + column];
    switch (cell.kind) {
        case Value::Kind::Null:
            break;
        case Value::Kind::Integer:
            return Value::Integer(std::bit_cast<std::int64_t>(cell.payload));
        case Value::Kind::Real:
            return Value::Real(std::bit_cast<double>(cell.payload));
        case Value::Kind::Text:
            return Value::Text(std::string_view(text_).substr(cell.payload, cell.textSize));
    }
    return {};
}

RecordsetBuilder::RecordsetBuilder(std::vector<std::string> columns) {
    recordset_.isOpen_ = true;
    recordset_.columns_ = std::move(columns);
}

void RecordsetBuilder::AddNull() {
    recordset_.cells_.emplace_back();
}

void RecordsetBuilder::AddInteger(std::int64_t integer) {
    recordset_.cells_.push_back({std::bit_cast<std::uint64_t>(integer), 0, Value::Kind::Integer});
}

void RecordsetBuilder::AddReal(double real) {
    recordset_.cells_.push_back({std::bit_cast<std::uint64_t>(real), 0, Value::Kind::Real});
}

void RecordsetBuilder::AddText(std::string_view text) {
    recordset_.cells_.push_back(
        {recordset_.text_.size(), static_cast<std::uint32_t>(text.size()), Value::Kind::Text});
    recordset_.text_.append(text);
}

std::size_t RecordsetBuilder::Size() const {
    return recordset_.cells_.size() * sizeof(Recordset::Cell) + recordset_.text_.size();
}

Recordset RecordsetBuilder::Take() {
    const std::size_t columns = recordset_.columns_.size();
    recordset_.rowCount_ = columns == 0 ? 0 : recordset_.cells_.size() / columns;
    return std::move(recordset_);
}

}  // namespace snippetarium
