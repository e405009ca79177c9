#include "engine/jet_sql.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

#include "engine/delete_target.h"
#include "engine/engine_error.h"
#include "engine/join_brackets.h"
#include "engine/sql_tokens.h"
#include "support/utf8.h"

namespace snippetarium {

// The text is read token by token, and each token is either copied with the white space before it
// or replaced. Nothing is parsed beyond what the few replacements need: most of the dialect is
// plain SQL that the engine below understands, and what it does not understand it reports better
// than we could.
//
// The values of action statements are the bulk of what passes through here, a procedure's source
// being up to 64,000 characters long. They are never copied into the statement: a value that stays
// in the text would have to pass through the engine's parser too, and no two statements would be
// alike.

namespace {

constexpr std::size_t kMostParameters = 250;

bool IsSetOperator(const SqlToken& token) {
    return token.IsWord("UNION") || token.IsWord("INTERSECT") || token.IsWord("EXCEPT");
}

void CheckCharacters(std::string_view text) {
    const std::size_t nul = text.find('\0');
    if (nul != std::string_view::npos) ThrowSyntaxError(nul, "remove the NUL byte");
    if (!IsValidUtf8(text)) {
        throw EngineError(EngineErrorCode::Syntax,
                          "The statement holds bytes that are no text in UTF-8. Convert what was "
                          "put into it first.");
    }
}

StatementVerb VerbOf(const SqlToken& token) {
    constexpr std::pair<std::string_view, StatementVerb> kVerbs[] = {
        {"SELECT", StatementVerb::Select}, {"INSERT", StatementVerb::Insert},
        {"UPDATE", StatementVerb::Update}, {"DELETE", StatementVerb::Delete},
        {"ALTER", StatementVerb::Alter},
    };
    for (const auto& [word, verb] : kVerbs) {
        if (token.IsWord(word)) return verb;
    }
    throw EngineError(EngineErrorCode::InvalidStatement,
                      "A statement begins with SELECT, INSERT, UPDATE, DELETE or ALTER TABLE.");
}

class Translator {
  public:
    Translator(std::string_view text, const TranslationOptions& options)
        : text_(text), options_(options), lexer_(text) {}

    Translation Run();

  private:
    void ReadStart(const SqlToken& verb);
    void ReadDeleteStart();
    void ReadDeleteFromJoin(const SqlToken& alias);
    std::vector<std::string> KeyColumnsOf(std::string_view table) const;
    void AppendList(const std::vector<std::string>& columns, std::string_view prefix);
    void ReadEnd(const SqlToken& end);

    void ReadToken(const SqlToken& token);
    void ReadWord(const SqlToken& token);
    void ReadSelect(const SqlToken& select);
    void ReadSetOperator(const SqlToken& token);
    void ReadQuotedName(const SqlToken& token);
    void CheckApart(const SqlToken& literal) const;
    void ReadText(const SqlToken& token);
    void ReadDate(const SqlToken& token);
    void ReadNumber(const SqlToken& token);

    SqlToken Expect(const char* word);
    bool TakesValues() const;
    void TakeValue(const SqlToken& token, SqlLiteral value);
    void Copy(const SqlToken& token);
    void Replace(const SqlToken& token, std::string_view replacement);
    void ReplaceByParameter(const SqlToken& token, std::size_t number);

    std::string_view text_;
    const TranslationOptions& options_;
    SqlLexer lexer_;
    SqlToken previous_;
    JoinBrackets brackets_;
    Translation result_;
    std::size_t done_ = 0;           // the offset in text_ up to which all is in the result
    std::string_view limit_;         // the number behind TOP
    bool isSelectRead_ = false;      // one at least
    bool isDeleteFromJoin_ = false;  // so a bracket of ours is open
    bool areNumbersValues_ = true;   // not places of columns, nor widths
};

Translation Translator::Run() {
    CheckCharacters(text_);
    SqlToken token = lexer_.Next();
    result_.verb = VerbOf(token);
    done_ = token.offset;
    ReadStart(token);
    for (token = lexer_.Next(); token.kind != SqlTokenKind::End && !token.Is(';');
         token = lexer_.Next()) {
        ReadToken(token);
    }
    ReadEnd(token);
    return std::move(result_);
}

void Translator::ReadStart(const SqlToken& verb) {
    switch (result_.verb) {
        case StatementVerb::Select:
            ReadToken(verb);
            break;
        case StatementVerb::Insert:
        case StatementVerb::Update:
            Copy(verb);
            break;
        case StatementVerb::Delete:
            Copy(verb);
            ReadDeleteStart();
            break;
        case StatementVerb::Alter:
            Copy(verb);
            Copy(Expect("TABLE"));
            break;
    }
}

/// This FROM is not shown to the bracket watch: behind it stands one table and never a join.
void Translator::ReadDeleteStart() {
    SqlLexer ahead = lexer_;
    const SqlToken token = ahead.Next();
    if (token.IsName() && !token.IsWord("FROM")) {
        lexer_ = ahead;
        ReadDeleteFromJoin(token);
        return;
    }
    if (token.Is('*')) {
        lexer_ = ahead;
        Replace(token, " ");
    }
    Copy(Expect("FROM"));
}

void Translator::ReadDeleteFromJoin(const SqlToken& alias) {
    const SqlToken dot = lexer_.Next();
    const SqlToken star = lexer_.Next();
    if (!dot.Is('.') || !star.Is('*')) {
        ThrowSyntaxError(alias.offset, "DELETE removes whole rows: write FROM, or a.* FROM");
    }
    const SqlToken from = Expect("FROM");
    const SqlToken table = TableOfAlias(lexer_, alias);
    const std::vector<std::string> key = KeyColumnsOf(table.Unquoted());
    result_.sql.append(" FROM ").append(table.text).append(" WHERE (");
    AppendList(key, {});
    result_.sql.append(") IN (SELECT ");
    AppendList(key, std::string(alias.text) + ".");
    result_.sql += ' ';
    isDeleteFromJoin_ = true;
    done_ = from.offset;
    ReadToken(from);
}

std::vector<std::string> Translator::KeyColumnsOf(std::string_view table) const {
    std::vector<std::string> key;
    if (options_.keyColumnsOf) key = options_.keyColumnsOf(table);
    if (key.empty()) key.emplace_back("rowid");
    return key;
}

void Translator::AppendList(const std::vector<std::string>& columns, std::string_view prefix) {
    for (const std::string& column : columns) {
        if (&column != &columns.front()) result_.sql += ", ";
        result_.sql.append(prefix).append(column);
    }
}

void Translator::ReadEnd(const SqlToken& end) {
    brackets_.Read({SqlTokenKind::End, {}, end.offset}, result_.sql);
    const std::string_view behind = text_.substr(std::min(end.offset + 1, text_.size()));
    if (behind.find_first_not_of(" \t\r\n\f") != std::string_view::npos) {
        throw EngineError(EngineErrorCode::TextAfterStatement,
                          "There is text behind the semicolon that ends the statement. Remove it: "
                          "only one statement can run at a time.");
    }
    if (isDeleteFromJoin_) result_.sql += ')';
    if (!limit_.empty()) result_.sql.append(" LIMIT ").append(limit_);
}

void Translator::ReadToken(const SqlToken& token) {
    switch (token.kind) {
        case SqlTokenKind::Word:
            ReadWord(token);
            break;
        case SqlTokenKind::QuotedName:
            ReadQuotedName(token);
            break;
        case SqlTokenKind::Text:
            ReadText(token);
            break;
        case SqlTokenKind::Date:
            ReadDate(token);
            break;
        case SqlTokenKind::Number:
            ReadNumber(token);
            break;
        case SqlTokenKind::Symbol:
        case SqlTokenKind::End:
            Copy(token);
            break;
    }
    brackets_.Read(token, result_.sql);
    previous_ = token;
}

void Translator::ReadWord(const SqlToken& token) {
    if (token.IsWord("SELECT")) return ReadSelect(token);
    if (IsSetOperator(token)) return ReadSetOperator(token);
    // The engine below copies the text of such a table each time it is named: a few dozen of them,
    // each naming the one before it twice, would keep it busy for ever, out of Cancel's reach.
    if (token.IsWord("WITH")) ThrowSyntaxError(token.offset, "WITH is not possible here");
    // ORDER BY 2 names a column; CAST(x AS TEXT(9)) a width.
    if (token.IsWord("ORDER") || token.IsWord("GROUP") || token.IsWord("CAST")) {
        areNumbersValues_ = false;
    }
    Copy(token);
}

void Translator::ReadSelect(const SqlToken& select) {
    Copy(select);
    const bool isFirst = !std::exchange(isSelectRead_, true);
    SqlLexer ahead = lexer_;
    SqlToken token = ahead.Next();
    if (token.IsWord("DISTINCT") || token.IsWord("ALL")) {
        lexer_ = ahead;
        Copy(token);
        token = ahead.Next();
    }
    if (!token.IsWord("TOP")) return;
    const SqlToken count = ahead.Next();
    if (count.kind != SqlTokenKind::Number) return;  // TOP is a column's name
    if (!isFirst || result_.verb != StatementVerb::Select) {
        ThrowSyntaxError(token.offset, "TOP is possible only in a statement's first SELECT");
    }
    if (count.text.find_first_not_of("0123456789") != std::string_view::npos) {
        ThrowSyntaxError(count.offset, "behind TOP stands a whole number of rows");
    }
    limit_ = count.text;
    lexer_ = ahead;
    Replace(token, "");
    Replace(count, "");
    if (ahead.Next().IsWord("PERCENT")) {
        ThrowSyntaxError(count.EndOffset(), "TOP counts rows, not percents");
    }
}

void Translator::ReadSetOperator(const SqlToken& token) {
    if (brackets_.Depth() == 0) {
        if (!limit_.empty()) ThrowSyntaxError(token.offset, "TOP is not possible in a UNION");
        if (isDeleteFromJoin_) ThrowSyntaxError(token.offset, "a DELETE cannot hold a UNION");
    }
    Copy(token);
}

void Translator::ReadQuotedName(const SqlToken& token) {
    SqlLexer ahead = lexer_;
    const bool isPart = previous_.Is('.') || previous_.IsWord("AS") || ahead.Next().Is('.');
    const std::vector<std::string>& names = options_.parameterNames;
    const auto found = std::find_if(names.begin(), names.end(), [&](const std::string& name) {
        return IsSameSqlName(name, token.Unquoted());
    });
    if (isPart || found == names.end()) return Copy(token);
    std::vector<std::string>& used = result_.parameterNames;
    if (std::find(used.begin(), used.end(), *found) == used.end()) used.push_back(*found);
    ReplaceByParameter(token, static_cast<std::size_t>(found - names.begin()) + 1);
}

/// x'41' would be bytes to the engine below, and a text with a date right behind it one text.
void Translator::CheckApart(const SqlToken& literal) const {
    const bool isBehindLiteral = previous_.kind == SqlTokenKind::Text ||
                                 previous_.kind == SqlTokenKind::Date || previous_.IsWord("X");
    if (isBehindLiteral && previous_.EndOffset() == literal.offset) {
        ThrowSyntaxError(literal.offset, "something must stand between these two");
    }
}

void Translator::ReadText(const SqlToken& token) {
    CheckApart(token);
    if (!TakesValues()) return Copy(token);
    TakeValue(token, TextOfLiteral(token));
}

void Translator::ReadDate(const SqlToken& token) {
    CheckApart(token);
    std::string date = DateTextOfLiteral(token);
    if (TakesValues()) return TakeValue(token, std::move(date));
    Replace(token, "'");
    result_.sql.append(date) += '\'';
}

void Translator::ReadNumber(const SqlToken& token) {
    std::optional<SqlLiteral> number;
    if (areNumbersValues_ && TakesValues()) number = NumberOfLiteral(token);
    if (!number) return Copy(token);
    TakeValue(token, *std::move(number));
}

SqlToken Translator::Expect(const char* word) {
    const SqlToken token = lexer_.Next();
    if (!token.IsWord(word)) ThrowSyntaxError(token.offset, std::string(word) + " must stand here");
    return token;
}

bool Translator::TakesValues() const {
    const bool isAction =
        result_.verb != StatementVerb::Select && result_.verb != StatementVerb::Alter;
    return isAction && result_.parameters.size() < kMostParameters;
}

void Translator::TakeValue(const SqlToken& token, SqlLiteral value) {
    result_.parameters.push_back(std::move(value));
    ReplaceByParameter(token, options_.parameterNames.size() + result_.parameters.size());
}

void Translator::Copy(const SqlToken& token) {
    result_.sql.append(text_.substr(done_, token.EndOffset() - done_));
    done_ = token.EndOffset();
}

void Translator::Replace(const SqlToken& token, std::string_view replacement) {
    result_.sql.append(text_.substr(done_, token.offset - done_)).append(replacement);
    done_ = token.EndOffset();
}

void Translator::ReplaceByParameter(const SqlToken& token, std::size_t number) {
    Replace(token, "?");
    result_.sql.append(std::to_string(number));
    // A number that follows at once must not become a part of ours.
    const std::string_view behind = text_.substr(done_, 1);
    if (behind >= "0" && behind <= "9") result_.sql += ' ';
}

}  // namespace

Translation Translate(std::string_view text, const TranslationOptions& options) {
    return Translator(text, options).Run();
}

}  // namespace snippetarium
