#include "quick/text_rows.h"

#include <array>
#include <string>

#include "engine/jet_like.h"
#include "store/database.h"
#include "store/text_index.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

/// Of a longer literal the beginning rules out enough, and a pattern may not be of any length.
constexpr std::size_t kMostCharacters = 256;

constexpr std::array<std::array<std::optional<TextKind>, kQuickTexts>, kQuickKinds> kTextKinds = {{
    {TextKind::ApplicationName, {}, TextKind::ApplicationComment, {}},
    {TextKind::ClassName, {}, TextKind::ClassComment, TextKind::ClassText},
    {TextKind::CodeName, {}, TextKind::CodeComment, TextKind::Code},
}};

std::optional<TextKind> TextsOf(QuickKind kind, QuickText text) {
    return kTextKinds[static_cast<std::size_t>(kind)][static_cast<std::size_t>(text)];
}

}  // namespace

std::optional<TextScan> ScanFor(QuickKind kind, QuickText text, std::string_view literal) {
    const std::optional<TextKind> texts = TextsOf(kind, text);
    if (!texts) return {};
    const auto shortTexts =
        text == QuickText::Code ? ShortTexts::AreFound : ShortTexts::MayBeMissing;
    return ScanFor(*texts, CutToCharacters(literal, kMostCharacters), shortTexts);
}

TextScan ScanKeywords(std::string_view literal) {
    return ScanFor(TextKind::Keyword, CutToCharacters(literal, kMostCharacters),
                   ShortTexts::AreFound);
}

void AddRowsThatAre(Database& db, QuickKind kind, QuickText text, std::string_view literal,
                    CandidateRows& rows) {
    // Only what has no trigram is looked up by those around it. A scan of code finds such texts.
    if (text == QuickText::Code || CharacterCount(literal) != 2) return;
    const QuickLevel& level = LevelOf(kind);
    const auto row = db.GetConnection().OpenCursor(
        text == QuickText::Name ? level.nameIs : level.commentIs, literal);
    while (row->Next()) {
        if (row->Number(0) > 0) rows.Of(kind).Add(static_cast<std::int32_t>(row->Number(0)));
    }
}

BlockMask RowsOfPartWithText(Database& db, QuickKind kind, QuickText text, std::string_view literal,
                             std::int32_t block, std::int32_t part) {
    if (literal.empty()) return ~BlockMask();
    const QuickLevel& level = LevelOf(kind);
    const std::string_view sql = text == QuickText::Comment ? level.commentsLike : level.codesLike;
    BlockMask mask;
    if (sql.empty()) return mask;
    constexpr std::int64_t kRows = kIDsInBlock / kPartsOfBlock;
    const std::string pattern = PatternOfLiteral(CutToCharacters(literal, kMostCharacters));
    const std::int64_t firstOfBlock = std::int64_t{block} * kIDsInBlock;
    const std::int64_t first = firstOfBlock + part * kRows;
    const auto row =
        db.GetConnection().OpenCursor(sql, first, first + kRows - 1, std::string_view(pattern));
    while (row->Next())
        mask.set(static_cast<std::size_t>(row->Number(0) - firstOfBlock));
    return mask;
}

}  // namespace snippetarium
