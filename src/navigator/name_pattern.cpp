#include "navigator/name_pattern.h"

#include <algorithm>
#include <string>

#include "support/error.h"

namespace snippetarium {

namespace {

[[noreturn]] void RefuseExpression(std::string_view expression) {
    throw Error(error_number::kInternal,
                "This expression of a highlighting query is not known: " + std::string(expression));
}

/// Reads "x", "\d" or "A-Z" at the front of a class or an expression.
class ByteReader {
  public:
    explicit ByteReader(std::string_view expression) : expression_(expression), rest_(expression) {}

    bool IsAtEnd() const { return rest_.empty(); }
    bool Take(char character) {
        if (!rest_.starts_with(character)) return false;
        rest_.remove_prefix(1);
        return true;
    }

    std::bitset<256> ReadSet() {
        if (!Take('[')) return ReadOne();
        std::bitset<256> bytes;
        while (!Take(']'))
            bytes |= ReadOne();
        return bytes;
    }

  private:
    std::bitset<256> ReadOne() {
        if (Take('\\')) {
            if (!Take('d')) RefuseExpression(expression_);
            return Range('0', '9');
        }
        if (IsAtEnd() || std::string_view("().*+?{}^$|").find(rest_.front()) != rest_.npos)
            RefuseExpression(expression_);
        const char first = rest_.front();
        rest_.remove_prefix(1);
        const bool isRange = rest_.size() > 1 && rest_[0] == '-' && rest_[1] != ']';
        if (!isRange) return Range(first, first);
        const char last = rest_[1];
        rest_.remove_prefix(2);
        return Range(first, last);
    }

    static std::bitset<256> Range(char first, char last) {
        std::bitset<256> bytes;
        const unsigned end = static_cast<unsigned char>(last) + 1U;
        for (unsigned byte = static_cast<unsigned char>(first); byte < end; ++byte)
            bytes.set(byte);
        return bytes;
    }

    std::string_view expression_;
    std::string_view rest_;
};

}  // namespace

NamePattern::NamePattern(std::string_view expression) {
    isAtStart_ = expression.starts_with('^');
    if (isAtStart_) expression.remove_prefix(1);
    isAtEnd_ = expression.ends_with('$');
    if (isAtEnd_) expression.remove_suffix(1);
    const bool isGroup = expression.starts_with('(') && expression.ends_with(')');
    if (!isGroup) {
        alternatives_.push_back(ReadSequence(expression));
        return;
    }
    expression = expression.substr(1, expression.size() - 2);
    while (true) {
        const std::size_t bar = expression.find('|');
        alternatives_.push_back(ReadSequence(expression.substr(0, bar)));
        if (bar == std::string_view::npos) return;
        expression.remove_prefix(bar + 1);
    }
}

NamePattern::Sequence NamePattern::ReadSequence(std::string_view expression) {
    Sequence sequence;
    ByteReader reader(expression);
    while (!reader.IsAtEnd()) {
        Part part{.bytes = reader.ReadSet()};
        if (reader.Take('*')) {
            part.mayBeMissing = part.mayRepeat = true;
        } else if (reader.Take('+')) {
            part.mayRepeat = true;
        }
        sequence.push_back(part);
    }
    return sequence;
}

bool NamePattern::Matches(std::string_view name) const {
    return std::ranges::any_of(alternatives_, [&](const Sequence& sequence) {
        const std::size_t lastStart = isAtStart_ ? 0 : name.size();
        for (std::size_t start = 0; start <= lastStart; ++start) {
            if (MatchesFrom(sequence, 0, name.substr(start))) return true;
        }
        return false;
    });
}

bool NamePattern::MatchesFrom(const Sequence& sequence, std::size_t part,
                              std::string_view rest) const {
    if (part == sequence.size()) return !isAtEnd_ || rest.empty();
    const auto& [bytes, mayBeMissing, mayRepeat] = sequence[part];
    std::size_t most = 0;
    while (most < rest.size() && (most == 0 || mayRepeat) &&
           bytes.test(static_cast<unsigned char>(rest[most]))) {
        ++most;
    }
    for (std::size_t taken = most + 1; taken-- > (mayBeMissing ? 0U : 1U);) {
        if (MatchesFrom(sequence, part + 1, rest.substr(taken))) return true;
    }
    return false;
}

}  // namespace snippetarium
