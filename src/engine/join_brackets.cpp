#include "engine/join_brackets.h"

#include "engine/engine_error.h"

namespace snippetarium {

// Whether a pair may go is known only when the token behind its closer has been read. What stands
// directly behind FROM is a sub-select if SELECT follows the opener. Else it is a group of joins,
// and the engine treats the group as if its brackets were not there, with two exceptions: behind
// the closer a name for the group or a condition may follow. Without the brackets these would
// belong to the group's last table. So the pair is blanked only before a token that goes on behind
// a whole group, and only behind a token that can be a group's last: "(a LEFT) JOIN b" is an error
// and must not become "a LEFT JOIN b".

namespace {

constexpr std::size_t kMostOpen = 100;

bool CanEndJoins(const SqlToken& token) {
    if (token.kind == SqlTokenKind::Symbol) return token.Is(')');
    return !IsJoinWord(token) && !token.IsWord("AS");
}

bool CanFollowJoins(const SqlToken& token) {
    return token.kind == SqlTokenKind::End || token.Is(')') || token.Is(',') || IsJoinWord(token) ||
           EndsFromClause(token);
}

}  // namespace

void JoinBrackets::Read(const SqlToken& token, std::string& sql) {
    SettleClosedPair(token, sql);
    if (!open_.empty() && EndsFromClause(token)) open_.back().holdsJoins = false;
    if (previous_.Is('(') && StartsSubSelect(token)) open_.back().holdsJoins = false;
    if (token.Is('(')) ReadOpener(token, sql.size() - 1);
    if (token.Is(')')) ReadCloser(token, sql.size() - 1);
    if (token.kind == SqlTokenKind::End && !open_.empty()) {
        ThrowSyntaxError(open_.back().statementOffset,
                         "the bracket that opens here is never closed");
    }
    const bool isClause = token.IsWord("FROM") && !previous_.IsWord("DISTINCT");
    isBehindFrom_ = isClause || (token.Is('(') && open_.back().holdsJoins);
    previous_ = token;
}

void JoinBrackets::SettleClosedPair(const SqlToken& next, std::string& sql) {
    if (closed_ && CanFollowJoins(next)) {
        sql[closed_->opener] = ' ';
        sql[closed_->closer] = ' ';
    }
    closed_.reset();
}

void JoinBrackets::ReadOpener(const SqlToken& token, std::size_t sqlOffset) {
    if (open_.size() == kMostOpen) {
        throw EngineError(EngineErrorCode::QueryTooComplex,
                          "The statement has more than " + std::to_string(kMostOpen) +
                              " brackets inside each other. Use fewer, or search for fewer words.");
    }
    open_.push_back({token.offset, sqlOffset, isBehindFrom_});
}

void JoinBrackets::ReadCloser(const SqlToken& token, std::size_t sqlOffset) {
    if (open_.empty())
        ThrowSyntaxError(token.offset, "no bracket is open that this one could close");
    const Open opener = open_.back();
    open_.pop_back();
    if (opener.holdsJoins && CanEndJoins(previous_)) closed_ = Pair{opener.sqlOffset, sqlOffset};
}

}  // namespace snippetarium
