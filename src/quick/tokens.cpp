#include "quick/tokens.h"

#include "quick/characters.h"
#include "support/case_fold.h"

namespace snippetarium {

namespace {

struct Filter {
    std::string_view name;
    QuickField field;
};

// clang-format off
constexpr Filter kFilters[] = {
    {"app",     QuickField::Application},
    {"class",   QuickField::Class},
    {"name",    QuickField::Name},
    {"code",    QuickField::Code},
    {"comment", QuickField::Comment},
    {"keyword", QuickField::Keyword},
    {"author",  QuickField::Author},
    {"lang",    QuickField::Language},
    {"kind",    QuickField::Kind},
    {"date",    QuickField::Date},
};
// clang-format on

bool EndsWord(char character) {
    return IsWhiteSpace(character) || character == '(' || character == ')' || character == '"';
}

/// What can begin a word that a "-" takes back. In front of anything else, "->" or "--x", it is
/// a letter like others.
bool CanBeNegated(char character) {
    const char small = AsciiLower(character);
    return (small >= 'a' && small <= 'z') || (character >= '0' && character <= '9') ||
           character == '_' || character == '"' || character == '(' ||
           static_cast<unsigned char>(character) >= 0x80U;
}

QuickToken::Type TypeOfWord(std::string_view word) {
    if (EqualsIgnoringAsciiCase(word, "and")) return QuickToken::Type::And;
    if (EqualsIgnoringAsciiCase(word, "or")) return QuickToken::Type::Or;
    if (EqualsIgnoringAsciiCase(word, "not")) return QuickToken::Type::Not;
    return QuickToken::Type::Text;
}

}  // namespace

void QuickTokens::SkipWhiteSpace() {
    while (position_ < entry_.size() && IsWhiteSpace(entry_[position_]))
        ++position_;
}

/// At the end, behind something else, what it takes back has still to be typed.
bool QuickTokens::IsMinus() const {
    if (entry_[position_] != '-') return false;
    const bool isLast = position_ + 1 == entry_.size();
    return isLast ? position_ > 0 : CanBeNegated(entry_[position_ + 1]);
}

/// A quotation mark inside a phrase is written twice.
void QuickTokens::ReadPhrase() {
    current_.type = QuickToken::Type::Text;
    current_.isPhrase = true;
    current_.isClosed = false;
    ++position_;
    while (position_ < entry_.size()) {
        const char character = entry_[position_++];
        if (character == '"') {
            if (position_ == entry_.size() || entry_[position_] != '"') {
                current_.isClosed = true;
                return;
            }
            ++position_;
        }
        current_.text += character;
    }
}

void QuickTokens::ReadWord() {
    const std::size_t start = position_;
    while (position_ < entry_.size() && !EndsWord(entry_[position_]))
        ++position_;
    const std::string_view word = entry_.substr(start, position_ - start);
    const std::size_t colon = word.find(':');
    for (const Filter& filter : kFilters) {
        if (colon == std::string_view::npos) break;
        if (!EqualsIgnoringAsciiCase(word.substr(0, colon), filter.name)) continue;
        current_.filter = filter.field;
        position_ = start + colon + 1;
        if (position_ < entry_.size() && entry_[position_] == '"') return ReadPhrase();
        if (position_ < entry_.size() && entry_[position_] == '(') {
            current_.type = QuickToken::Type::Open;
            ++position_;
            return;
        }
        current_.type = QuickToken::Type::Text;
        current_.text = word.substr(colon + 1);
        position_ += current_.text.size();
        return;
    }
    current_.type = TypeOfWord(word);
    current_.text = word;
}

void QuickTokens::Advance() {
    SkipWhiteSpace();
    current_ = {};
    current_.place = position_ + 1;
    if (position_ == entry_.size()) return;
    const char character = entry_[position_];
    if (character == '(' || character == ')') {
        current_.type = character == '(' ? QuickToken::Type::Open : QuickToken::Type::Close;
        ++position_;
    } else if (character == '"') {
        ReadPhrase();
    } else if (IsMinus()) {
        current_.type = QuickToken::Type::Not;
        ++position_;
    } else {
        ReadWord();
    }
}

}  // namespace snippetarium
