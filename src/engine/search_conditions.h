#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/text_index.h"

namespace snippetarium {

/// A part of the text that a column is compared with: a literal's text, or the name of a parameter.
struct PatternPart {
    std::string text;
    bool isParameter = false;

    bool operator==(const PatternPart&) const = default;
};

enum class TextComparison : std::uint8_t { Like, Equal };

/// What is known of a condition: which comparisons with indexed columns must hold for it to hold.
struct SearchCondition {
    enum class Kind : std::uint8_t {
        /// Anything may fulfil it.
        Unknown,
        /// `source.column LIKE pattern`, or with "=".
        Text,
        All,
        Any,
    };

    Kind kind = Kind::Unknown;
    std::vector<SearchCondition> parts;
    /// For Text: the place of the table in SearchSelect::sources, the column's in the table's list,
    /// and what is compared with.
    std::size_t source = 0;
    unsigned column = 0;
    TextComparison comparison = TextComparison::Like;
    std::vector<PatternPart> pattern;
};

/// One SELECT of a statement, as far as it concerns the text index.
struct SearchSelect {
    struct Source {
        std::string alias;
        const IndexedTable* table = nullptr;
    };
    /// Each row of one source stands beside its parent's row of the other one.
    struct Link {
        std::size_t child = 0;
        std::size_t parent = 0;
    };

    /// Where the word WHERE begins in the statement, and where the condition behind it begins and
    /// ends, in bytes.
    std::size_t whereBegin = 0;
    std::size_t conditionBegin = 0;
    std::size_t conditionEnd = 0;
    /// The tables of FROM that are indexed.
    std::vector<Source> sources;
    /// Whether FROM has others, too.
    bool hasOtherTables = false;
    std::vector<Link> links;
    SearchCondition condition;
};

/// Takes a SELECT of the catalogue's dialect apart, joined by UNION or alone. It returns those
/// SELECTs that ask for texts of indexed columns, and leaves out all that it does not fully
/// understand. For such a SELECT, "(condition)" may be replaced by "restriction AND (condition)"
/// wherever the restriction follows from the condition, and another table may be joined in front of
/// WHERE.
std::vector<SearchSelect> ReadSearchSelects(std::string_view statement,
                                            std::span<const IndexedTable> tables);

}  // namespace snippetarium
