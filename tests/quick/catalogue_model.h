#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "quick/name_match.h"
#include "quick/query.h"
#include "store/database.h"

namespace snippetarium::test {

/// A row of the catalogue with everything that quick search can find it by.
struct ModelRow {
    QuickKind kind = QuickKind::Application;
    std::int32_t id = 0;
    std::string key;
    std::string name;
    std::string appName;
    std::string className;
    std::string keywords;
    std::string comment;
    std::string code;
    std::vector<std::string> searchWords;
    std::vector<std::string> authors;
    std::vector<std::string> dates;
    std::vector<std::string> languages;
};

/// A filter as one types it: "app:"; empty where none is typed.
std::string TypedFilter(QuickField field);

/// What a row has to have, as a test makes it up, and as it is typed.
struct ModelEntry {
    enum class Type { Term, And, Or, Not };
    Type type = Type::Term;
    QuickField field = QuickField::Anything;
    std::string text;
    bool isPhrase = false;
    std::vector<ModelEntry> parts;

    /// As one would type it; what is made of parts stands in brackets.
    std::string Typed() const;
};

/// A slow quick search: every row read, every text walked through, the hits sorted at the end.
class CatalogueModel {
  public:
    explicit CatalogueModel(Database& db);

    const std::vector<ModelRow>& Rows() const { return rows_; }
    /// "tier key", in the order in which hits are listed.
    std::vector<std::string> Find(const ModelEntry& entry) const;

  private:
    /// Each way to meet the entry, by the worst tier of the texts in it; Filter for a way without.
    std::set<QuickTier> WaysToMeet(const ModelEntry& entry, const ModelRow& row,
                                   bool countsSlips) const;
    std::optional<QuickTier> TierOfTerm(const ModelEntry& term, const ModelRow& row,
                                        bool countsSlips) const;
    bool HasLanguage(const ModelEntry& term, const ModelRow& row) const;

    std::vector<ModelRow> rows_;
    std::vector<std::string> languages_;
};

}  // namespace snippetarium::test
