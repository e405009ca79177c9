#include "engine/recordset.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "engine/engine_error.h"
#include "support/case_fold.h"

namespace snippetarium {

namespace {

/// Texts stand one behind the other up to so many bytes; a longer one stands alone.
constexpr std::size_t kTextTogether = std::size_t{64} << 10U;
/// A text's place: which of texts_ it stands in, and from which byte on.
constexpr unsigned kOffsetBits = 32;

}  // namespace

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
    texts_ = std::exchange(other.texts_, {});
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
    const Cell& cell = CellAt(row_ * columns_.size() + column);
    switch (cell.kind) {
        case Value::Kind::Null:
            break;
        case Value::Kind::Integer:
            return Value::Integer(std::bit_cast<std::int64_t>(cell.payload));
        case Value::Kind::Real:
            return Value::Real(std::bit_cast<double>(cell.payload));
        case Value::Kind::Text:
            return Value::Text(TextOf(cell));
    }
    return {};
}

std::string_view Recordset::TextOf(const Cell& cell) const {
    const std::string_view together = texts_[cell.payload >> kOffsetBits];
    return together.substr(static_cast<std::uint32_t>(cell.payload), cell.textSize);
}

RecordsetBuilder::RecordsetBuilder(std::vector<std::string> columns) {
    recordset_.isOpen_ = true;
    recordset_.columns_ = std::move(columns);
}

void RecordsetBuilder::Add(const Recordset::Cell& cell) {
    auto& cells = recordset_.cells_;
    if (cells.empty() || cells.back().size() == Recordset::kCellsTogether) {
        cells.emplace_back();
        // Most results are small, and so the first few fields take no more than they need.
        if (cells.size() > 1) cells.back().reserve(Recordset::kCellsTogether);
    }
    cells.back().push_back(cell);
    size_ += sizeof(cell) + cell.textSize;
}

void RecordsetBuilder::AddNull() {
    Add({});
}

void RecordsetBuilder::AddInteger(std::int64_t integer) {
    Add({std::bit_cast<std::uint64_t>(integer), 0, Value::Kind::Integer});
}

void RecordsetBuilder::AddReal(double real) {
    Add({std::bit_cast<std::uint64_t>(real), 0, Value::Kind::Real});
}

void RecordsetBuilder::AddText(std::string_view text) {
    auto& texts = recordset_.texts_;
    if (texts.empty() || texts.back().size() + text.size() > kTextTogether) {
        texts.emplace_back();
        if (texts.size() > 1) texts.back().reserve(std::max(kTextTogether, text.size()));
    }
    std::string& together = texts.back();
    const std::uint64_t place = (texts.size() - 1) << kOffsetBits | together.size();
    Add({place, static_cast<std::uint32_t>(text.size()), Value::Kind::Text});
    together.append(text);
}

Recordset RecordsetBuilder::Take() {
    const std::size_t columns = recordset_.columns_.size();
    const std::size_t cells = recordset_.cells_.empty()
                                  ? 0
                                  : (recordset_.cells_.size() - 1) * Recordset::kCellsTogether +
                                        recordset_.cells_.back().size();
    recordset_.rowCount_ = columns == 0 ? 0 : cells / columns;
    return std::move(recordset_);
}

}  // namespace snippetarium
