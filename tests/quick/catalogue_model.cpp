#include "tests/quick/catalogue_model.h"

#include <algorithm>
#include <tuple>

#include "quick/tokens.h"
#include "store/sql_text.h"
#include "support/case_fold.h"
#include "support/utf8.h"

namespace snippetarium::test {

namespace {

constexpr std::int32_t kAgeStep = 1024;

enum class Fit { Whole, Beginning };

/// Whether a pattern fits a folded text, all of it or a beginning.
bool Fits(std::u32string_view pattern, std::u32string_view text, bool isPhrase, Fit fit) {
    if (pattern.empty()) return text.empty() || fit == Fit::Beginning;
    const bool isLetter = !text.empty() && text[0] > U' ';
    if (!isPhrase && pattern[0] == '*') {
        return Fits(pattern.substr(1), text, isPhrase, fit) ||
               (isLetter && Fits(pattern, text.substr(1), isPhrase, fit));
    }
    if (text.empty()) return false;
    const bool fits = pattern[0] == text[0] || (!isPhrase && pattern[0] == '?' && isLetter);
    return fits && Fits(pattern.substr(1), text.substr(1), isPhrase, fit);
}

std::u32string Folded(std::string_view text) {
    std::u32string folded;
    for (std::size_t position = 0; position < text.size();)
        folded += NextFolded(text, position);
    return folded;
}

bool FitsAt(const ModelEntry& term, std::string_view text, std::size_t place) {
    return Fits(Folded(term.text), Folded(text.substr(place)), term.isPhrase, Fit::Beginning);
}

bool Contains(const ModelEntry& term, std::string_view text) {
    const std::u32string pattern = Folded(term.text);
    const std::u32string folded = Folded(text);
    for (std::size_t place = 0; place < folded.size(); ++place) {
        const auto rest = std::u32string_view(folded).substr(place);
        if (Fits(pattern, rest, term.isPhrase, Fit::Beginning)) return true;
    }
    return false;
}

bool FitsWhole(const ModelEntry& term, std::string_view text) {
    return Fits(Folded(term.text), Folded(text), term.isPhrase, Fit::Whole);
}

/// The number of slips, counted by the textbook.
std::size_t Distance(const std::u32string& a, const std::u32string& b) {
    std::vector<std::vector<std::size_t>> d(a.size() + 1, std::vector<std::size_t>(b.size() + 1));
    for (std::size_t i = 0; i <= a.size(); ++i) {
        for (std::size_t j = 0; j <= b.size(); ++j) {
            if (i == 0 || j == 0) {
                d[i][j] = i + j;
                continue;
            }
            const std::size_t replaced = d[i - 1][j - 1] + (a[i - 1] == b[j - 1] ? 0U : 1U);
            d[i][j] = std::min({replaced, d[i - 1][j] + 1, d[i][j - 1] + 1});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                d[i][j] = std::min(d[i][j], d[i - 2][j - 2] + 1);
        }
    }
    return d[a.size()][b.size()];
}

bool IsSlip(const ModelEntry& term, std::string_view name) {
    const std::u32string typed = Folded(term.text);
    if (term.isPhrase || typed.size() < 4 || term.text.find_first_of("*?") != std::string::npos)
        return false;
    for (std::size_t start = 0; start < name.size(); DecodeUtf8(name, start)) {
        for (std::size_t end = start; end < name.size();) {
            DecodeUtf8(name, end);
            if (!IsWordStart(name, start) || !IsWordEnd(name, end)) continue;
            if (Distance(typed, Folded(name.substr(start, end - start))) <= 1) return true;
        }
    }
    return false;
}

std::optional<QuickTier> TierOfName(const ModelEntry& term, std::string_view name) {
    if (FitsWhole(term, name) || FitsWhole(term, BareName(name))) return QuickTier::ExactName;
    if (FitsAt(term, name, 0)) return QuickTier::NamePrefix;
    for (std::size_t place = 0; place < name.size(); DecodeUtf8(name, place)) {
        if (IsWordStart(name, place) && FitsAt(term, name, place)) return QuickTier::WordStart;
    }
    if (Contains(term, name)) return QuickTier::NamePart;
    return {};
}

ModelRow RowOf(QuickKind kind, std::int32_t id) {
    ModelRow row;
    row.kind = kind;
    row.id = id;
    return row;
}

std::vector<std::string> ReadTexts(Database& db, const std::string& sql) {
    std::vector<std::string> texts;
    for (Recordset row = db.GetConnection().Execute(sql); !row.EndOfFile(); row.MoveNext())
        texts.push_back(row[std::size_t{0}].Text());
    return texts;
}

std::string OfOwner(std::string_view text, std::int32_t id, std::int32_t owner) {
    return Sql(text, " WHERE ownerID = ", id, " AND ownerTableID = ", owner);
}

void ReadLinks(Database& db, ModelRow& row, std::int32_t keywordID) {
    const auto owner = static_cast<std::int32_t>(row.kind) + 1;
    for (const std::string& text :
         ReadTexts(db, Sql("SELECT keyword FROM tblKeyword WHERE keywordID = ", keywordID)))
        row.keywords = text;
    row.searchWords = ReadTexts(
        db, Sql("SELECT searchWord FROM tblSearchWord sw INNER JOIN tblKeyword_link_searchWord l "
                "ON sw.searchWordID = l.searchWordID WHERE l.keywordID = ",
                keywordID));
    row.dates = ReadTexts(db, OfOwner("SELECT dDate FROM tblDate d INNER JOIN tbl_date_link l ON "
                                      "d.dateID = l.dateID",
                                      row.id, owner));
    Recordset author = db.GetConnection().Execute(
        OfOwner("SELECT authorFName, authorMName, authorLName FROM tblAuthor a INNER JOIN "
                "tbl_Author_Link l ON a.authorID = l.authorID",
                row.id, owner));
    for (; !author.EndOfFile(); author.MoveNext()) {
        std::string name = author[std::size_t{0}].Text();
        for (const std::size_t part : {std::size_t{1}, std::size_t{2}}) {
            const std::string text = author[part].Text();
            if (!name.empty() && !text.empty()) name += ' ';
            name += text;
        }
        row.authors.push_back(name);
    }
}

}  // namespace

std::string TypedFilter(QuickField field) {
    constexpr const char* kTyped[] = {"",       "name:",   "keyword:", "comment:", "code:", "app:",
                                      "class:", "author:", "lang:",    "kind:",    "date:"};
    return kTyped[static_cast<std::size_t>(field)];
}

std::string ModelEntry::Typed() const {
    if (type == Type::Term) {
        std::string typed = TypedFilter(field);
        if (!isPhrase) return typed + text;
        typed += '"';
        for (const char character : text)
            typed.append(character == '"' ? 2 : 1, character);
        return typed + '"';
    }
    if (type == Type::Not) return "not " + parts.front().Typed();
    std::string typed = "(";
    for (const ModelEntry& part : parts) {
        if (typed.size() > 1) typed += type == Type::And ? " " : " or ";
        typed += part.Typed();
    }
    return typed + ")";
}

CatalogueModel::CatalogueModel(Database& db) {
    languages_ = ReadTexts(db, "SELECT language FROM tblLanguage");
    Connection& connection = db.GetConnection();
    Recordset row = connection.Execute(
        "SELECT appID, appName, appComment, keywordID "
        "FROM tblApplication");
    for (; !row.EndOfFile(); row.MoveNext()) {
        ModelRow model = RowOf(QuickKind::Application, row["appID"].Long());
        model.name = model.appName = row["appName"].Text();
        model.comment = row["appComment"].Text();
        model.key = "a" + std::to_string(model.id);
        ReadLinks(db, model, row["keywordID"].Long());
        rows_.push_back(model);
    }
    row = connection.Execute(
        "SELECT classID, className, a.appID, a.appName, classComment, classDI, cls.keywordID, "
        "languageID FROM tblClass cls INNER JOIN tblApplication a ON a.appID = cls.appID");
    for (; !row.EndOfFile(); row.MoveNext()) {
        ModelRow model = RowOf(QuickKind::Class, row["classID"].Long());
        model.name = model.className = row["className"].Text();
        model.appName = row["appName"].Text();
        model.comment = row["classComment"].Text();
        model.code = row["classDI"].Text();
        model.key = Sql("a", row["appID"].Long(), "f", model.id);
        model.languages = ReadTexts(db, Sql("SELECT language FROM tblLanguage WHERE languageID = ",
                                            row["languageID"].Long()));
        ReadLinks(db, model, row["keywordID"].Long());
        rows_.push_back(model);
    }
    row = connection.Execute(
        "SELECT codeID, codeName, a.appID, a.appName, cls.classID, cls.className, codeComment, "
        "code, cd.keywordID, cls.languageID FROM (tblCode cd INNER JOIN tblClass cls ON "
        "cd.classID = cls.classID) INNER JOIN tblApplication a ON a.appID = cls.appID");
    for (; !row.EndOfFile(); row.MoveNext()) {
        ModelRow model = RowOf(QuickKind::Procedure, row["codeID"].Long());
        model.name = row["codeName"].Text();
        model.className = row["className"].Text();
        model.appName = row["appName"].Text();
        model.comment = row["codeComment"].Text();
        model.code = row["code"].Text();
        model.key = Sql("a", row["appID"].Long(), "f", row["classID"].Long(), "c", model.id);
        model.languages = ReadTexts(
            db, Sql("SELECT language FROM tblLanguage la INNER JOIN tblCode_Link_Language l ON "
                    "la.languageID = l.languageID WHERE l.codeID = ",
                    model.id));
        if (model.languages.empty()) {
            model.languages =
                ReadTexts(db, Sql("SELECT language FROM tblLanguage WHERE languageID = ",
                                  row["languageID"].Long()));
        }
        ReadLinks(db, model, row["keywordID"].Long());
        rows_.push_back(model);
    }
}

bool CatalogueModel::HasLanguage(const ModelEntry& term, const ModelRow& row) const {
    const auto isMeant = [&](const std::string& language) { return FitsWhole(term, language); };
    const bool isEqual = std::ranges::any_of(languages_, isMeant);
    return std::ranges::any_of(row.languages, [&](const std::string& language) {
        return isEqual ? isMeant(language) : FitsAt(term, language, 0);
    });
}

std::optional<QuickTier> CatalogueModel::TierOfTerm(const ModelEntry& term, const ModelRow& row,
                                                    bool countsSlips) const {
    const auto contains = [&](const std::string& text) { return Contains(term, text); };
    const auto filter = [](bool holds) {
        return holds ? std::optional(QuickTier::Filter) : std::nullopt;
    };
    const bool isAnything = term.field == QuickField::Anything;
    switch (term.field) {
        case QuickField::Application:
            return filter(contains(row.appName));
        case QuickField::Class:
            return filter(contains(row.className));
        case QuickField::Author:
            return filter(std::ranges::any_of(row.authors, contains));
        case QuickField::Language:
            return filter(HasLanguage(term, row));
        case QuickField::Date:
            return filter(std::ranges::any_of(row.dates, [&](const std::string& date) {
                return date.compare(0, term.text.size(), term.text) == 0;
            }));
        case QuickField::Kind:
            return filter(std::string_view("acp")[static_cast<std::size_t>(row.kind)] ==
                          term.text[0]);
        default:
            break;
    }
    const bool isInNames = isAnything || term.field == QuickField::Name;
    if (const auto tier = TierOfName(term, row.name); isInNames && tier) return tier;
    if (isAnything || term.field == QuickField::Keyword) {
        const bool has =
            term.isPhrase ? contains(row.keywords) : std::ranges::any_of(row.searchWords, contains);
        if (has) return QuickTier::Keyword;
    }
    if ((isAnything || term.field == QuickField::Comment) && contains(row.comment))
        return QuickTier::Comment;
    if ((isAnything || term.field == QuickField::Code) && contains(row.code))
        return QuickTier::Code;
    if (countsSlips && isInNames && IsSlip(term, row.name)) return QuickTier::Slip;
    return {};
}

std::set<QuickTier> CatalogueModel::WaysToMeet(const ModelEntry& entry, const ModelRow& row,
                                               bool countsSlips) const {
    if (entry.type == ModelEntry::Type::Term) {
        const auto tier = TierOfTerm(entry, row, countsSlips);
        return tier ? std::set<QuickTier>{*tier} : std::set<QuickTier>();
    }
    if (entry.type == ModelEntry::Type::Not) {
        const bool isMet = !WaysToMeet(entry.parts.front(), row, false).empty();
        return isMet ? std::set<QuickTier>() : std::set<QuickTier>{QuickTier::Filter};
    }
    std::set<QuickTier> ways;
    if (entry.type == ModelEntry::Type::And) ways = {QuickTier::Filter};
    for (const ModelEntry& part : entry.parts) {
        const std::set<QuickTier> ofPart = WaysToMeet(part, row, countsSlips);
        if (entry.type == ModelEntry::Type::Or) {
            ways.insert(ofPart.begin(), ofPart.end());
            continue;
        }
        std::set<QuickTier> both;
        for (const QuickTier a : ways) {
            for (const QuickTier b : ofPart) {
                if (a == QuickTier::Filter || b == QuickTier::Filter) {
                    both.insert(std::min(a, b));  // the other one, or Filter
                } else {
                    both.insert(std::max(a, b));
                }
            }
        }
        ways = both;
    }
    return ways;
}

std::vector<std::string> CatalogueModel::Find(const ModelEntry& entry) const {
    using Order = std::tuple<QuickTier, QuickKind, std::int32_t, std::size_t, std::int32_t>;
    std::vector<std::pair<Order, std::string>> hits;
    for (const ModelRow& row : rows_) {
        const std::set<QuickTier> ways = WaysToMeet(entry, row, true);
        if (ways.empty()) continue;
        const QuickTier tier = *ways.begin();
        hits.push_back({{tier, row.kind, -(row.id / kAgeStep), row.name.size(), -row.id},
                        std::to_string(static_cast<int>(tier)) + " " + row.key});
    }
    std::ranges::sort(hits);
    std::vector<std::string> result;
    for (const auto& [order, hit] : hits)
        result.push_back(hit);
    return result;
}

}  // namespace snippetarium::test
