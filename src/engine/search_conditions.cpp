#include "engine/search_conditions.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "engine/sql_literals.h"
#include "engine/sql_tokens.h"

namespace snippetarium {

// A condition is read by its precedence from outside: first it is cut at each OR outside of
// brackets, then each part at its ANDs, then brackets around the whole of a part are taken off and
// all begins anew. A part that is no comparison of a known form is unknown, whatever it says, and
// so is what stands behind NOT. To take a part for unknown is never wrong: it only restricts less.

namespace {

using Tokens = std::span<const SqlToken>;
using Kind = SearchCondition::Kind;

// clang-format off
constexpr std::string_view kWordsOfUnfamiliarJoins[] = {
    "LEFT", "RIGHT", "FULL", "OUTER", "NATURAL", "USING", "SELECT", "OR", "NOT", "CASE", "VALUES",
};
constexpr std::string_view kWordsBehindAlias[] = {
    "ON", "INNER", "CROSS", "JOIN", "WHERE", "AS", "INDEXED", "NOT",
};
// clang-format on

template <std::size_t Count>
bool IsOneOf(const SqlToken& token, const std::string_view (&words)[Count]) {
    return std::ranges::any_of(words, [&](std::string_view word) { return token.IsWord(word); });
}

std::vector<SqlToken> ReadTokens(std::string_view statement) {
    std::vector<SqlToken> tokens;
    SqlLexer lexer(statement);
    do {
        tokens.push_back(lexer.Next());
    } while (tokens.back().kind != SqlTokenKind::End);
    return tokens;
}

int DepthChange(const SqlToken& token) {
    if (token.Is('(')) return 1;
    return token.Is(')') ? -1 : 0;
}

/// The place of the next token outside of brackets for which `isWanted` holds; the number of tokens
/// where there is none.
template <typename Predicate>
std::size_t FindOutside(Tokens tokens, std::size_t from, Predicate&& isWanted) {
    int depth = 0;
    for (std::size_t i = from; i < tokens.size(); ++i) {
        if (depth == 0 && isWanted(tokens[i])) return i;
        depth += DepthChange(tokens[i]);
    }
    return tokens.size();
}

/// The tokens between the words that `isCut` is true for.
template <typename Predicate>
std::vector<Tokens> SplitOutside(Tokens tokens, Predicate&& isCut) {
    std::vector<Tokens> parts;
    for (std::size_t from = 0;;) {
        const std::size_t end = FindOutside(tokens, from, isCut);
        parts.push_back(tokens.subspan(from, end - from));
        if (end == tokens.size()) return parts;
        from = end + 1;
    }
}

/// For each "AND" whether it joins two conditions; "BETWEEN a AND b" has one that does not.
std::vector<Tokens> SplitAtAnd(Tokens tokens) {
    bool isInBetween = false;
    return SplitOutside(tokens, [&](const SqlToken& token) {
        if (token.IsWord("BETWEEN")) isInBetween = true;
        if (!token.IsWord("AND")) return false;
        return !std::exchange(isInBetween, false);
    });
}

bool IsBracketed(Tokens tokens) {
    if (tokens.size() < 3 || !tokens.front().Is('(')) return false;
    int depth = 0;
    const auto closer = std::ranges::find_if(tokens, [&](const SqlToken& token) {
        depth += DepthChange(token);
        return depth == 0;
    });
    return closer == tokens.end() - 1 && !StartsSubSelect(tokens[1]);
}

class SelectReader {
  public:
    SelectReader(std::span<const IndexedTable> tables, SearchSelect& select)
        : tables_(tables), select_(select) {}

    /// False where the joins are not of the simple kind that the catalogue's statements have.
    bool ReadFrom(Tokens from);
    SearchCondition ReadCondition(Tokens tokens) const;

  private:
    void AddSource(Tokens from, std::size_t place);
    void AddLink(Tokens from, std::size_t place);
    std::optional<std::size_t> FindSource(const SqlToken& alias) const;
    SearchCondition ReadParts(Kind kind, const std::vector<Tokens>& parts) const;
    SearchCondition ReadComparison(Tokens tokens) const;

    std::span<const IndexedTable> tables_;
    SearchSelect& select_;
};

bool SelectReader::ReadFrom(Tokens from) {
    for (std::size_t i = 0; i < from.size(); ++i) {
        if (IsOneOf(from[i], kWordsOfUnfamiliarJoins)) return false;
        if (from[i].IsName()) AddSource(from, i);
    }
    for (std::size_t i = 0; i < from.size(); ++i)
        AddLink(from, i);
    const auto isBetweenTables = [](const SqlToken& token) {
        return token.IsWord("JOIN") || token.Is(',');
    };
    const auto tables = 1 + static_cast<std::size_t>(std::ranges::count_if(from, isBetweenTables));
    select_.hasOtherTables = tables != select_.sources.size();
    // An alias that two tables have means neither.
    for (const SearchSelect::Source& source : select_.sources) {
        if (std::ranges::count_if(select_.sources, [&](const SearchSelect::Source& other) {
                return IsSameSqlName(source.alias, other.alias);
            }) > 1) {
            return false;
        }
    }
    return true;
}

void SelectReader::AddSource(Tokens from, std::size_t place) {
    const auto table = std::ranges::find_if(tables_, [&](const IndexedTable& candidate) {
        return IsSameSqlName(candidate.name, from[place].Unquoted());
    });
    if (table == tables_.end()) return;
    const bool isBehindDot = place > 0 && from[place - 1].Is('.');
    std::size_t next = place + 1;
    const bool isBeforeDot = next < from.size() && from[next].Is('.');
    if (isBehindDot || isBeforeDot) return;
    if (next < from.size() && from[next].IsWord("AS")) ++next;
    const bool hasAlias =
        next < from.size() && from[next].IsName() && !IsOneOf(from[next], kWordsBehindAlias);
    select_.sources.push_back(
        {std::string(from[hasAlias ? next : place].Unquoted()), std::to_address(table)});
}

std::optional<std::size_t> SelectReader::FindSource(const SqlToken& alias) const {
    for (std::size_t i = 0; i < select_.sources.size(); ++i) {
        if (IsSameSqlName(select_.sources[i].alias, alias.Unquoted())) return i;
    }
    return std::nullopt;
}

/// For "ON a.x = b.y", with nothing more to it but AND.
void SelectReader::AddLink(Tokens from, std::size_t place) {
    constexpr std::size_t kLength = 8;
    if (from.size() < place + kLength) return;
    const Tokens link = from.subspan(place, kLength);
    const bool isComparison = (link[0].IsWord("ON") || link[0].IsWord("AND")) && link[1].IsName() &&
                              link[2].Is('.') && link[3].IsName() && link[4].Is('=') &&
                              link[5].IsName() && link[6].Is('.') && link[7].IsName();
    const SqlToken behind = place + kLength < from.size() ? from[place + kLength] : SqlToken();
    const bool isWhole = behind.kind == SqlTokenKind::End || behind.Is(')') ||
                         behind.IsWord("AND") || IsJoinWord(behind);
    const auto left = FindSource(link[1]);
    const auto right = FindSource(link[5]);
    if (!isComparison || !isWhole || !left || !right) return;
    const auto add = [&](std::size_t child, const SqlToken& column, std::size_t parent,
                         const SqlToken& parentColumn) {
        const IndexedTable& table = *select_.sources[child].table;
        const IndexedTable& parentTable = *select_.sources[parent].table;
        if (IsSameSqlName(table.parentTable, parentTable.name) &&
            IsSameSqlName(table.parentColumn, column.Unquoted()) &&
            IsSameSqlName(parentTable.idColumn, parentColumn.Unquoted())) {
            select_.links.push_back({child, parent});
        }
    };
    add(*left, link[3], *right, link[7]);
    add(*right, link[7], *left, link[3]);
}

SearchCondition SelectReader::ReadParts(Kind kind, const std::vector<Tokens>& parts) const {
    SearchCondition condition;
    condition.kind = kind;
    for (const Tokens part : parts)
        condition.parts.push_back(ReadCondition(part));
    return condition;
}

SearchCondition SelectReader::ReadCondition(Tokens tokens) const {
    const std::vector<Tokens> alternatives =
        SplitOutside(tokens, [](const SqlToken& token) { return token.IsWord("OR"); });
    if (alternatives.size() > 1) return ReadParts(Kind::Any, alternatives);
    const std::vector<Tokens> parts = SplitAtAnd(tokens);
    if (parts.size() > 1) return ReadParts(Kind::All, parts);
    if (IsBracketed(tokens)) return ReadCondition(tokens.subspan(1, tokens.size() - 2));
    return ReadComparison(tokens);
}

SearchCondition SelectReader::ReadComparison(Tokens tokens) const {
    constexpr std::size_t kBeforePattern = 4;
    if (tokens.size() <= kBeforePattern || !tokens[0].IsName() || !tokens[1].Is('.') ||
        !tokens[2].IsName()) {
        return {};
    }
    const auto source = FindSource(tokens[0]);
    const bool isEqual = tokens[3].Is('=');
    if (!source || (!isEqual && !tokens[3].IsWord("LIKE"))) return {};
    const std::span<const std::string_view> columns = select_.sources[*source].table->columns;
    const auto column = std::ranges::find_if(
        columns, [&](std::string_view name) { return IsSameSqlName(name, tokens[2].Unquoted()); });
    if (column == columns.end()) return {};
    SearchCondition condition;
    condition.kind = Kind::Text;
    condition.source = *source;
    condition.column = static_cast<unsigned>(column - columns.begin());
    condition.comparison = isEqual ? TextComparison::Equal : TextComparison::Like;
    // Texts and parameters with "||" between them.
    for (std::size_t i = kBeforePattern; i < tokens.size(); i += 3) {
        const SqlToken& token = tokens[i];
        if (token.kind == SqlTokenKind::Text) {
            condition.pattern.push_back({TextOfLiteral(token), false});
        } else if (token.kind == SqlTokenKind::QuotedName) {
            condition.pattern.push_back({std::string(token.Unquoted()), true});
        } else {
            return {};
        }
        if (i + 1 == tokens.size()) return condition;
        if (i + 3 >= tokens.size() || !tokens[i + 1].Is('|') || !tokens[i + 2].Is('|')) return {};
    }
    return {};
}

/// The place behind a SELECT's last token: at what joins it to the next one, or ends it.
std::size_t EndOfSelect(Tokens tokens, std::size_t from) {
    return FindOutside(tokens, from, [](const SqlToken& token) {
        return token.kind == SqlTokenKind::End || token.Is(';') ||
               (EndsFromClause(token) && !token.IsWord("WHERE")) || token.IsWord("WINDOW");
    });
}

bool HasText(const SearchCondition& condition) {
    return condition.kind == Kind::Text || std::ranges::any_of(condition.parts, HasText);
}

std::optional<SearchSelect> ReadSelect(Tokens tokens, std::span<const IndexedTable> tables) {
    const auto find = [&](std::size_t from, std::string_view word) {
        return FindOutside(tokens, from, [&](const SqlToken& token) { return token.IsWord(word); });
    };
    const std::size_t from = find(0, "FROM");
    if (from == tokens.size()) return std::nullopt;
    const std::size_t where = find(from, "WHERE");
    if (where + 1 >= tokens.size()) return std::nullopt;
    const Tokens condition = tokens.subspan(where + 1);
    const bool isUnfamiliar =
        std::ranges::any_of(condition, [](const SqlToken& token) { return token.IsWord("CASE"); });
    SearchSelect select;
    SelectReader reader(tables, select);
    if (isUnfamiliar || !reader.ReadFrom(tokens.subspan(from + 1, where - from - 1)))
        return std::nullopt;
    select.whereBegin = tokens[where].offset;
    select.conditionBegin = condition.front().offset;
    select.conditionEnd = condition.back().EndOffset();
    select.condition = reader.ReadCondition(condition);
    if (!HasText(select.condition)) return std::nullopt;
    return select;
}

bool AreBracketsPaired(Tokens tokens) {
    int depth = 0;
    for (const SqlToken& token : tokens) {
        depth += DepthChange(token);
        if (depth < 0) return false;
    }
    return depth == 0;
}

}  // namespace

std::vector<SearchSelect> ReadSearchSelects(std::string_view statement,
                                            std::span<const IndexedTable> tables) {
    const std::vector<SqlToken> tokens = ReadTokens(statement);
    if (!AreBracketsPaired(tokens)) return {};
    std::vector<SearchSelect> selects;
    for (std::size_t begin = 0; begin < tokens.size();) {
        const std::size_t end = EndOfSelect(tokens, begin);
        auto select = ReadSelect(Tokens(tokens).subspan(begin, end - begin), tables);
        if (select) selects.push_back(*std::move(select));
        begin = end + 1;
    }
    return selects;
}

}  // namespace snippetarium
