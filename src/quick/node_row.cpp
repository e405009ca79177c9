#include "quick/node_row.h"

#include <algorithm>

#include "quick/standing.h"
#include "store/database.h"

namespace snippetarium {

namespace {

constexpr std::string_view kLanguagesOfCode =
    "SELECT languageID FROM tblCode_Link_Language WHERE codeID = ?1";
constexpr std::string_view kAuthorsOfOwner =
    "SELECT au.authorFName, au.authorMName, au.authorLName "
    "FROM tbl_Author_Link al CROSS JOIN tblAuthor au ON au.authorID = al.authorID "
    "WHERE al.ownerID = ?1 AND al.ownerTableID = ?2";
constexpr std::string_view kDatesOfOwner =
    "SELECT d.dDate FROM tbl_date_link dl CROSS JOIN tblDate d ON d.dateID = dl.dateID "
    "WHERE dl.ownerID = ?1 AND dl.ownerTableID = ?2";
constexpr std::string_view kWordsOfKeyword =
    "SELECT sw.searchWord FROM tblKeyword_link_searchWord l "
    "CROSS JOIN tblSearchWord sw ON sw.searchWordID = l.searchWordID WHERE l.keywordID = ?1";
constexpr std::string_view kKeyword = "SELECT keyword FROM tblKeyword WHERE keywordID = ?1";

std::int32_t ID(const RowCursor& row, std::size_t column) {
    return static_cast<std::int32_t>(row.Number(column));
}

bool Among(const std::vector<std::int32_t>& ids, std::int32_t id) {
    return std::ranges::find(ids, id) != ids.end();
}

}  // namespace

std::optional<NodeRow> NodeRow::Read(Database& db, QuickKind kind, std::int32_t id) {
    const auto row = db.GetConnection().OpenCursor(LevelOf(kind).row, std::int64_t{id});
    if (!row->Next()) return {};
    NodeRow result(db, kind, id);
    result.name_ = row->Text(0);
    result.keywordID_ = ID(*row, 1);
    result.ids_ = {ID(*row, 2), ID(*row, 4), kind == QuickKind::Procedure ? id : 0};
    result.appName_ = row->Text(3);
    result.className_ = row->Text(5);
    result.languageID_ = ID(*row, 6);
    return result;
}

std::string NodeRow::ReadText(std::string_view sql) const {
    if (sql.empty()) return {};
    const auto row = db_->GetConnection().OpenCursor(sql, std::int64_t{id_});
    return row->Next() ? std::string(row->Text(0)) : std::string();
}

const std::string& NodeRow::Comment() {
    if (!comment_) comment_ = ReadText(LevelOf(kind_).comment);
    return *comment_;
}

const std::string& NodeRow::Code() {
    if (!code_) code_ = ReadText(LevelOf(kind_).code);
    return *code_;
}

std::string NodeRow::Keywords() const {
    const auto row = db_->GetConnection().OpenCursor(kKeyword, std::int64_t{keywordID_});
    return row->Next() ? std::string(row->Text(0)) : std::string();
}

bool NodeRow::HasLanguage(const std::vector<std::int32_t>& languageIDs) const {
    if (kind_ == QuickKind::Procedure) {
        const auto row = db_->GetConnection().OpenCursor(kLanguagesOfCode, std::int64_t{id_});
        bool hasOwn = false;
        while (row->Next()) {
            if (Among(languageIDs, ID(*row, 0))) return true;
            hasOwn = true;
        }
        if (hasOwn) return false;
    }
    return kind_ != QuickKind::Application && Among(languageIDs, languageID_);
}

bool NodeRow::HasAuthor(const WordPattern& pattern) const {
    const auto row = db_->GetConnection().OpenCursor(
        kAuthorsOfOwner, std::int64_t{id_}, static_cast<std::int64_t>(LevelOf(kind_).owner));
    while (row->Next()) {
        if (pattern.Find(AuthorName(row->Text(0), row->Text(1), row->Text(2)))) return true;
    }
    return false;
}

bool NodeRow::HasDate(const DayRange& days) const {
    const auto row = db_->GetConnection().OpenCursor(
        kDatesOfOwner, std::int64_t{id_}, static_cast<std::int64_t>(LevelOf(kind_).owner));
    while (row->Next()) {
        if (days.Holds(row->Text(0))) return true;
    }
    return false;
}

bool NodeRow::HasFilter(const PlannedTerm& term) {
    switch (term.term.field) {
        case QuickField::Application:
            return term.pattern->Find(appName_).has_value();
        case QuickField::Class:
            return kind_ != QuickKind::Application && term.pattern->Find(className_).has_value();
        case QuickField::Author:
            return HasAuthor(*term.pattern);
        case QuickField::Language:
            return HasLanguage(term.languageIDs);
        case QuickField::Date:
            return HasDate(term.term.days);
        default:
            return term.term.kinds.test(static_cast<std::size_t>(kind_));
    }
}

bool NodeRow::HasKeyword(const PlannedTerm& term) {
    if (keywordID_ <= 0) return false;
    if (term.keywordIDs) return term.keywordIDs->Holds(keywordID_);
    if (term.term.isPhrase) return term.pattern->Find(Keywords()).has_value();
    const auto row = db_->GetConnection().OpenCursor(kWordsOfKeyword, std::int64_t{keywordID_});
    while (row->Next()) {
        if (term.pattern->Find(row->Text(0))) return true;
    }
    return false;
}

std::optional<QuickTier> NodeRow::TierOf(const PlannedTerm& term, QuickTier worst) {
    if (!IsTextField(term.term.field)) {
        return HasFilter(term) ? std::optional(QuickTier::Filter) : std::nullopt;
    }
    if (term.IsLookedForIn(QuickText::Name)) {
        if (const auto match = MatchName(*term.pattern, name_)) return match->tier;
    }
    if (worst >= QuickTier::Keyword && term.IsLookedForIn(QuickText::Keyword)) {
        if (HasKeyword(term)) return QuickTier::Keyword;
    }
    if (worst >= QuickTier::Comment && term.IsLookedForIn(QuickText::Comment)) {
        if (term.pattern->Find(Comment())) return QuickTier::Comment;
    }
    if (worst >= QuickTier::Code && term.IsLookedForIn(QuickText::Code)) {
        if (term.pattern->Find(Code())) return QuickTier::Code;
    }
    if (worst >= QuickTier::Slip && term.slip && term.slip->Find(name_)) return QuickTier::Slip;
    return {};
}

bool NodeRow::Has(const PlannedTerm& term) {
    return TierOf(term, QuickTier::Code).has_value();
}

namespace {

/// Whether the row meets a part of the entry, for a "not" around it.
bool Meets(const QuickPlan& plan, const QuickNode& node, NodeRow& row) {
    const auto meets = [&](const QuickNode& part) { return Meets(plan, part, row); };
    switch (node.type) {
        case QuickNode::Type::Term:
            return row.Has(plan.terms[node.term]);
        case QuickNode::Type::Not:
            return !meets(node.parts.front());
        case QuickNode::Type::And:
            return std::ranges::all_of(node.parts, meets);
        case QuickNode::Type::Or:
            break;
    }
    return std::ranges::any_of(node.parts, meets);
}

}  // namespace

std::optional<QuickTier> TierOfRow(const QuickPlan& plan, NodeRow& row, QuickTier worst) {
    const auto ofTerm = [&](const QuickNode& node) {
        const auto tier = row.TierOf(plan.terms[node.term], worst);
        return tier == QuickTier::Filter ? Standing::OfFilter(true) : Standing::OfText(tier);
    };
    const auto ofNot = [&](const QuickNode& node) {
        return Standing::OfFilter(!Meets(plan, node.parts.front(), row));
    };
    return StandingOf(plan.root, ofTerm, ofNot).Tier();
}

std::string AuthorName(std::string_view first, std::string_view middle, std::string_view last) {
    std::string name;
    for (const std::string_view part : {first, middle, last}) {
        if (!part.empty() && !name.empty()) name += ' ';
        name += part;
    }
    return name;
}

}  // namespace snippetarium
