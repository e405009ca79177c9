#include "engine/search_restriction.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "engine/engine_error.h"
#include "engine/jet_like.h"
#include "engine/sql_literals.h"
#include "engine/sql_tokens.h"

namespace snippetarium {

namespace {

using Kind = SearchCondition::Kind;
using IDs = std::vector<std::int64_t>;

std::optional<std::string> TextOfPattern(const std::vector<PatternPart>& pattern,
                                         const ParameterText& parameters) {
    std::string text;
    for (const PatternPart& part : pattern) {
        const std::optional<std::string> value =
            part.isParameter ? parameters(part.text) : std::make_optional(part.text);
        if (!value) return std::nullopt;
        text += *value;
    }
    return text;
}

/// Works out which rows of one source, the target, can fulfil a condition.
class RestrictionOfSelect {
  public:
    RestrictionOfSelect(const SearchSelect& select, std::size_t target,
                        const ParameterText& parameters, TextLookup& lookup)
        : select_(select), target_(target), parameters_(parameters), lookup_(lookup) {}

    /// Whether the condition's form lets rows be told apart at all; costs nothing.
    bool IsPossible(const SearchCondition& condition) const {
        const auto isPossible = [this](const SearchCondition& part) { return IsPossible(part); };
        switch (condition.kind) {
            case Kind::Unknown:
                return false;
            case Kind::Text:
                return condition.source == target_ || IsParent(condition.source);
            case Kind::All:
                return std::ranges::any_of(condition.parts, isPossible);
            case Kind::Any:
                return std::ranges::all_of(condition.parts, isPossible);
        }
        return false;
    }

    /// Nothing where any row can.
    TextCandidates Find(const SearchCondition& condition) const {
        if (!IsPossible(condition)) return std::nullopt;
        switch (condition.kind) {
            case Kind::Unknown:
                break;
            case Kind::Text:
                return FindText(condition);
            case Kind::All:
                return FindAll(condition.parts);
            case Kind::Any:
                return FindAny(condition.parts);
        }
        return std::nullopt;
    }

  private:
    bool IsParent(std::size_t source) const {
        return std::ranges::any_of(select_.links, [&](const SearchSelect::Link& link) {
            return link.child == target_ && link.parent == source;
        });
    }

    TextCandidates FindText(const SearchCondition& condition) const {
        const auto pattern = TextOfPattern(condition.pattern, parameters_);
        if (!pattern) return std::nullopt;
        const IndexedTable& table = *select_.sources[condition.source].table;
        TextCandidates found =
            lookup_.Find(table, condition.column, condition.comparison, *pattern);
        if (!found || condition.source == target_) return found;
        // A parent that is none after all would bring all its children in.
        IDs parents = lookup_.Check(table, condition.column, condition.comparison, *pattern,
                                    *std::move(found));
        return lookup_.ChildrenOf(*select_.sources[target_].table, std::move(parents));
    }

    TextCandidates FindAll(const std::vector<SearchCondition>& parts) const {
        TextCandidates common;
        for (const SearchCondition& part : parts) {
            TextCandidates found = Find(part);
            if (!found) continue;
            if (common) {
                IDs both;
                std::ranges::set_intersection(*common, *found, std::back_inserter(both));
                found = std::move(both);
            }
            common = std::move(found);
        }
        return common;
    }

    TextCandidates FindAny(const std::vector<SearchCondition>& parts) const {
        IDs all;
        for (const SearchCondition& part : parts) {
            const TextCandidates found = Find(part);
            if (!found) return std::nullopt;
            IDs both;
            std::ranges::set_union(all, *found, std::back_inserter(both));
            all = std::move(both);
        }
        return all;
    }

    const SearchSelect& select_;
    std::size_t target_;
    const ParameterText& parameters_;
    TextLookup& lookup_;
};

/// A restriction of one SELECT, as text; nothing where there is none.
std::optional<std::string> RestrictionOf(const SearchSelect& select,
                                         const ParameterText& parameters, TextLookup& lookup,
                                         CandidateTable& lists) {
    for (std::size_t target = 0; target < select.sources.size(); ++target) {
        const RestrictionOfSelect restriction(select, target, parameters, lookup);
        if (!restriction.IsPossible(select.condition)) continue;
        TextCandidates found = restriction.Find(select.condition);
        if (!found) return std::nullopt;
        const SearchSelect::Source& source = select.sources[target];
        return "[" + source.alias + "]." + std::string(source.table->idColumn) +
               " IN tblTextCandidates(" + std::to_string(lists.Add(*std::move(found))) + ")";
    }
    return std::nullopt;
}

/// A pattern that is none fails the search at the first row that it is compared with; so that row
/// must stay.
bool HasInvalidPattern(std::string_view statement) {
    SqlLexer lexer(statement);
    bool isPattern = false;
    for (SqlToken token = lexer.Next(); token.kind != SqlTokenKind::End; token = lexer.Next()) {
        if (isPattern && token.kind == SqlTokenKind::Text) {
            try {
                const LikePattern pattern(TextOfLiteral(token));
            } catch (const EngineError&) {
                return true;
            }
        }
        isPattern = token.IsWord("LIKE");
    }
    return false;
}

}  // namespace

std::optional<std::string> RestrictSearch(std::string_view statement,
                                          const ParameterText& parameters, TextLookup& lookup,
                                          CandidateTable& lists) {
    const std::vector<SearchSelect> selects = ReadSearchSelects(statement, lookup.Tables());
    if (selects.empty() || HasInvalidPattern(statement)) return std::nullopt;
    std::string restricted;
    std::size_t done = 0;
    for (const SearchSelect& select : selects) {
        const auto restriction = RestrictionOf(select, parameters, lookup, lists);
        if (!restriction) continue;
        restricted.append(statement.substr(done, select.conditionBegin - done));
        restricted.append(*restriction).append(" AND (");
        restricted.append(
            statement.substr(select.conditionBegin, select.conditionEnd - select.conditionBegin));
        restricted.append(")");
        done = select.conditionEnd;
    }
    if (done == 0) return std::nullopt;
    restricted.append(statement.substr(done));
    return restricted;
}

}  // namespace snippetarium
