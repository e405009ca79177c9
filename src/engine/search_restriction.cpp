#include "engine/search_restriction.h"

#include <algorithm>
#include <cstdint>
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
        return Find(condition, UnknownParents::AreRead);
    }

  private:
    /// What is done with a text of parents that the index knows nothing of. To read the texts of
    /// them all is less than to read those of their children too, but more than to look at the few
    /// rows that another condition leaves.
    enum class UnknownParents : std::uint8_t { AreRead, AreLeft };

    TextCandidates Find(const SearchCondition& condition, UnknownParents unknown) const {
        if (!IsPossible(condition)) return std::nullopt;
        switch (condition.kind) {
            case Kind::Unknown:
                break;
            case Kind::Text:
                return FindText(condition, unknown);
            case Kind::All:
                return FindAll(condition.parts);
            case Kind::Any:
                return FindAny(condition.parts, unknown);
        }
        return std::nullopt;
    }

    bool IsParent(std::size_t source) const {
        return std::ranges::any_of(select_.links, [&](const SearchSelect::Link& link) {
            return link.child == target_ && link.parent == source;
        });
    }

    TextCandidates FindText(const SearchCondition& condition, UnknownParents unknown) const {
        const auto pattern = TextOfPattern(condition.pattern, parameters_);
        if (!pattern) return std::nullopt;
        const IndexedTable& table = *select_.sources[condition.source].table;
        TextCandidates found =
            lookup_.Find(table, condition.column, condition.comparison, *pattern);
        if (condition.source == target_) return found;
        if (!found && unknown == UnknownParents::AreLeft) return std::nullopt;
        // A parent that is none after all would bring all its children in.
        IDs parents = found ? lookup_.Check(table, condition.column, condition.comparison, *pattern,
                                            *std::move(found))
                            : lookup_.Read(table, condition.column, condition.comparison, *pattern);
        return lookup_.ChildrenOf(*select_.sources[target_].table, std::move(parents));
    }

    TextCandidates FindAll(const std::vector<SearchCondition>& parts) const {
        TextCandidates common;
        for (const SearchCondition& part : parts) {
            TextCandidates found = Find(part, UnknownParents::AreLeft);
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

    TextCandidates FindAny(const std::vector<SearchCondition>& parts,
                           UnknownParents unknown) const {
        IDs all;
        // The target's own texts first: where nothing is known of them, the parents are not read.
        for (const bool isOfTarget : {true, false}) {
            for (const SearchCondition& part : parts) {
                if ((part.kind == Kind::Text && part.source == target_) != isOfTarget) continue;
                const TextCandidates found = Find(part, unknown);
                if (!found) return std::nullopt;
                IDs both;
                std::ranges::set_union(all, *found, std::back_inserter(both));
                all = std::move(both);
            }
        }
        return all;
    }

    const SearchSelect& select_;
    std::size_t target_;
    const ParameterText& parameters_;
    TextLookup& lookup_;
};

bool AsksForTextsOnly(const SearchCondition& condition) {
    return condition.kind != Kind::Unknown &&
           std::ranges::all_of(condition.parts, AsksForTextsOnly);
}

/// True where the target's rows, each beside those that it belongs to, are all that there is to
/// look through, and nothing but texts tells them apart. Every row is going to be read then.
bool ReadsEveryRow(const SearchSelect& select, std::size_t target) {
    return select.links.size() + 1 == select.sources.size() && !select.hasOtherTables &&
           std::ranges::none_of(select.links,
                                [&](const auto& link) { return link.parent == target; }) &&
           AsksForTextsOnly(select.condition);
}

/// The candidates of one SELECT, and which of its tables they are rows of.
struct Restriction {
    std::size_t target = 0;
    IDs ids;
};

std::optional<Restriction> RestrictionOf(const SearchSelect& select,
                                         const ParameterText& parameters, TextLookup& lookup) {
    for (std::size_t target = 0; target < select.sources.size(); ++target) {
        const RestrictionOfSelect restriction(select, target, parameters, lookup);
        if (!restriction.IsPossible(select.condition)) continue;
        TextCandidates found = restriction.Find(select.condition);
        if (!found && ReadsEveryRow(select, target))
            found = lookup.EveryID(*select.sources[target].table);
        if (!found) return std::nullopt;
        return Restriction{target, *std::move(found)};
    }
    return std::nullopt;
}

/// A SELECT from FROM's tables on, with the list of candidates joined to them.
std::string Restricted(std::string_view statement, const SearchSelect& select, std::size_t target,
                       std::size_t list) {
    const SearchSelect::Source& source = select.sources[target];
    const std::string number = std::to_string(list);
    const std::string alias = "textCandidates" + number;
    std::string restricted = ", tblTextCandidates(" + number + ") AS " + alias + " WHERE " + alias +
                             ".id = [" + source.alias + "]." + std::string(source.table->idColumn) +
                             " AND (";
    restricted.append(
        statement.substr(select.conditionBegin, select.conditionEnd - select.conditionBegin));
    return restricted + ")";
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
        auto restriction = RestrictionOf(select, parameters, lookup);
        if (!restriction) continue;
        restricted.append(statement.substr(done, select.whereBegin - done));
        const std::size_t list = lists.Add(std::move(restriction->ids));
        restricted.append(Restricted(statement, select, restriction->target, list));
        done = select.conditionEnd;
    }
    if (done == 0) return std::nullopt;
    restricted.append(statement.substr(done));
    return restricted;
}

}  // namespace snippetarium
