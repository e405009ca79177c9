#include "engine/delete_target.h"

#include <string>

namespace snippetarium {

namespace {

bool IsAlias(const SqlToken& token) {
    return token.IsName() && !IsJoinWord(token) && !EndsFromClause(token) && !token.IsWord("ON") &&
           !token.IsWord("USING");
}

/// Reads on to behind the closer of a bracket that has just been opened.
void SkipBrackets(SqlLexer& lexer) {
    for (int depth = 1; depth > 0;) {
        const SqlToken token = lexer.Next();
        if (token.kind == SqlTokenKind::End) return;
        if (token.Is('(')) ++depth;
        if (token.Is(')')) --depth;
    }
}

/// What may follow a table's name: AS and a name, or a name alone. Else the table is its own alias.
SqlToken ReadAlias(SqlLexer& lexer, const SqlToken& table) {
    SqlLexer ahead = lexer;
    SqlToken token = ahead.Next();
    if (token.IsWord("AS")) token = ahead.Next();
    if (!IsAlias(token)) return table;
    lexer = ahead;
    return token;
}

}  // namespace

SqlToken TableOfAlias(SqlLexer clause, const SqlToken& alias) {
    bool isTableNext = true;
    for (SqlToken token = clause.Next(); token.kind != SqlTokenKind::End; token = clause.Next()) {
        if (EndsFromClause(token)) break;
        if (token.Is('(')) {
            SqlLexer ahead = clause;
            const bool holdsTables = isTableNext && !StartsSubSelect(ahead.Next());
            if (!holdsTables) SkipBrackets(clause);
            isTableNext = holdsTables;
        } else if (isTableNext && token.IsName()) {
            if (IsSameSqlName(ReadAlias(clause, token).Unquoted(), alias.Unquoted())) return token;
            isTableNext = false;
        } else {
            isTableNext = token.Is(',') || token.IsWord("JOIN");
        }
    }
    ThrowSyntaxError(alias.offset,
                     "no table behind FROM has the name '" + std::string(alias.Unquoted()) + "'");
}

}  // namespace snippetarium
