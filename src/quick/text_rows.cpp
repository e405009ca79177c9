#include "quick/text_rows.h"

#include "store/text_index.h"

namespace snippetarium {

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

}  // namespace snippetarium
