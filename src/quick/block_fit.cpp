#include "quick/block_fit.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <optional>
#include <string>

#include "quick/name_match.h"
#include "support/case_fold.h"

namespace snippetarium {

namespace {

/// As many bytes as each processor compares at once; the compiler knows the instructions.
using Bytes [[gnu::vector_size(16)]] = unsigned char;
constexpr std::size_t kAtOnce = sizeof(Bytes);

Bytes Load(const char* from) {
    Bytes bytes;
    std::memcpy(&bytes, from, sizeof bytes);
    return bytes;
}

constexpr bool IsAsciiLetter(char32_t character) {
    return (character | 0x20U) >= 'a' && (character | 0x20U) <= 'z';
}

/// The beginning of a pattern as bytes that a word may start with: a capital anywhere, or a small
/// letter that is not behind another one; and what follows it, in any case.
class WordStartBytes {
  public:
    /// Nothing for a pattern that does not begin with a letter of ASCII.
    static std::optional<WordStartBytes> Of(const std::u32string& beginning) {
        if (beginning.empty() || !IsAsciiLetter(beginning[0])) return {};
        WordStartBytes bytes;
        bytes.small_ = static_cast<unsigned char>(beginning[0]);
        bytes.capital_ = static_cast<unsigned char>(beginning[0] - 0x20U);
        if (beginning.size() > 1 && beginning[1] < 0x80) {
            bytes.mask_ = IsAsciiLetter(beginning[1]) ? 0xDF : 0xFF;
            bytes.value_ = static_cast<unsigned char>(beginning[1] & bytes.mask_);
        }
        return bytes;
    }

    /// Whether they stand anywhere among kAtOnce bytes, which have one before and one behind them.
    bool FitAnyOf(const char* place) const {
        const Bytes before = Load(place - 1);
        const Bytes here = Load(place);
        const Bytes next = Load(place + 1);
        const auto isBehindLetter = (before | 0x20U) - 'a' < 26;
        const auto isStart = (here == capital_) | ((here == small_) & ~isBehindLetter);
        const auto fits = isStart & ((next & mask_) == value_);
        std::array<std::uint64_t, 2> any{};
        std::memcpy(any.data(), &fits, sizeof any);
        return (any[0] | any[1]) != 0;
    }

  private:
    unsigned char small_ = 0;
    unsigned char capital_ = 0;
    /// Of what follows; without bits where that is not known.
    unsigned char mask_ = 0;
    unsigned char value_ = 0;
};

bool StartsAt(const WordPattern& pattern, std::string_view names, std::size_t place) {
    if (!pattern.FindAt(names, place)) return false;
    return place == 0 || names[place - 1] == '\n' || IsWordStart(names, place);
}

/// For patterns of whatever characters.
bool StartsAWordAnywhere(const WordPattern& pattern, std::string_view names) {
    for (std::size_t from = 0; from < names.size();) {
        const auto found = pattern.Find(names, from);
        if (!found) return false;
        if (StartsAt(pattern, names, found->begin)) return true;
        from = found->begin;
        NextFolded(names, from);
    }
    return false;
}

bool StartsAWord(const WordPattern& pattern, const WordStartBytes& bytes, std::string_view names) {
    for (std::size_t place = 0; place < names.size();) {
        const bool isInside = place > 0 && place + kAtOnce < names.size();
        const std::size_t end = place + (isInside ? kAtOnce : 1);
        if (!isInside || bytes.FitAnyOf(names.data() + place)) {
            for (; place < end; ++place) {
                if (StartsAt(pattern, names, place)) return true;
            }
        }
        place = end;
    }
    return false;
}

/// Whether some name may end where the pattern does, or its parameter list begin there.
bool MayFitWhole(const WordPattern& pattern, std::string_view names) {
    if (!pattern.Ending()) return true;
    const FoldedNeedle& ending = *pattern.Ending();
    for (std::size_t place = ending.Find(names); place != FoldedNeedle::kNotFound;) {
        const std::size_t behind = place + ending.Size();
        if (behind == names.size()) return true;
        if (std::string_view("\n( \t").find(names[behind]) != std::string_view::npos) return true;
        NextFolded(names, place);
        place = ending.Find(names, place);
    }
    return false;
}

}  // namespace

BlockFit FitOfBlock(const WordPattern& pattern, std::string_view names) {
    if (pattern.Literal().empty()) return BlockFit::Whole;
    if (pattern.Needle().Find(names) == FoldedNeedle::kNotFound) return BlockFit::None;
    const auto bytes = WordStartBytes::Of(pattern.Beginning());
    const bool starts =
        bytes ? StartsAWord(pattern, *bytes, names) : StartsAWordAnywhere(pattern, names);
    if (!starts) return BlockFit::Inside;
    return MayFitWhole(pattern, names) ? BlockFit::Whole : BlockFit::AtWordStart;
}

namespace {

BlockFit FitOfTerm(PlannedTerm& term, const NameBlock& names, std::int32_t block) {
    if (!IsTextField(term.term.field)) return BlockFit::Whole;
    if (term.isNegated || !term.IsLookedForIn(QuickText::Name)) return BlockFit::None;
    const BlockFit fit = FitOfBlock(*term.pattern, names.Names());
    if (fit == BlockFit::None)
        term.In(QuickText::Name).Of(QuickKind::Procedure).Replace(block, BlockMask());
    return fit;
}

BlockFit FitOfNode(QuickPlan& plan, const QuickNode& node, const NameBlock& names,
                   std::int32_t block) {
    const auto fitOf = [&](const QuickNode& part) { return FitOfNode(plan, part, names, block); };
    switch (node.type) {
        case QuickNode::Type::Term:
            return FitOfTerm(plan.terms[node.term], names, block);
        case QuickNode::Type::Not:
            return BlockFit::Whole;
        case QuickNode::Type::And: {
            BlockFit worst = BlockFit::Whole;
            for (const QuickNode& part : node.parts)
                worst = std::min(worst, fitOf(part));
            return worst;
        }
        case QuickNode::Type::Or:
            break;
    }
    BlockFit best = BlockFit::None;
    for (const QuickNode& part : node.parts)
        best = std::max(best, fitOf(part));
    return best;
}

}  // namespace

BlockFit FitOfEntry(QuickPlan& plan, const NameBlock& names, std::int32_t block) {
    return FitOfNode(plan, plan.root, names, block);
}

}  // namespace snippetarium
