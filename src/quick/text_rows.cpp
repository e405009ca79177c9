#include "quick/text_rows.h"

#include <string>

#include "store/database.h"
#include "store/text_index.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

/// Of a longer literal the beginning rules out enough, and a pattern may not be of any length.
constexpr std::size_t kMostCharacters = 256;

/// A pattern of LIKE for texts that hold the literal.
std::string PatternFor(std::string_view literal) {
    std::string pattern = "%";
    for (const char character : CutToCharacters(literal, kMostCharacters)) {
        const bool isWildcard = character == '%' || character == '_' || character == '[';
        if (isWildcard) pattern += '[';
        pattern += character;
        if (isWildcard) pattern += ']';
    }
    return pattern + "%";
}

}  // namespace

TextRows RowsWithText(Database& db, QuickKind kind, QuickText text, std::string_view literal) {
    const bool isComment = text == QuickText::Comment;
    switch (kind) {
        case QuickKind::Application:
            return CandidatesFor(db, TextKind::ApplicationComment, literal);
        case QuickKind::Class:
            return CandidatesFor(db, isComment ? TextKind::ClassComment : TextKind::ClassText,
                                 literal);
        case QuickKind::Procedure:
            break;
    }
    return CandidatesFor(db, isComment ? TextKind::CodeComment : TextKind::Code, literal);
}

BlockMask RowsOfBlockWithText(Database& db, QuickKind kind, QuickText text,
                              std::string_view literal, std::int32_t block) {
    if (literal.empty()) return ~BlockMask();
    const QuickLevel& level = LevelOf(kind);
    const std::string_view sql = text == QuickText::Comment ? level.commentsLike : level.codesLike;
    BlockMask mask;
    if (sql.empty()) return mask;
    const std::string pattern = PatternFor(literal);
    const std::int64_t first = std::int64_t{block} * kIDsInBlock;
    const auto row = db.GetConnection().OpenCursor(sql, first, first + kIDsInBlock - 1,
                                                   std::string_view(pattern));
    while (row->Next())
        mask.set(static_cast<std::size_t>(row->Number(0) - first));
    return mask;
}

}  // namespace snippetarium
