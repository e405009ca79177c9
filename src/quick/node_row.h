#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "quick/plan.h"
#include "support/node_key.h"

namespace snippetarium {

/// One application, class or procedure, read piece by piece as it is asked for.
class NodeRow {
  public:
    /// Nothing where there is no such row, or it has no place in the tree.
    static std::optional<NodeRow> Read(Database& db, QuickKind kind, std::int32_t id);

    QuickKind Kind() const { return kind_; }
    const NodeIDs& IDs() const { return ids_; }
    const std::string& Name() const { return name_; }
    const std::string& AppName() const { return appName_; }
    /// Empty for an application.
    const std::string& ClassName() const { return className_; }

    const std::string& Comment();
    /// The code of a procedure, the text of a class.
    const std::string& Code();
    /// The string of its keywords as it was typed.
    std::string Keywords() const;

    /// Whether the row has a term, exactly and in whichever text it is looked for.
    bool Has(const PlannedTerm& term);
    /// The best tier at which the row has the term, among those up to `worst`. Filter for a filter.
    std::optional<QuickTier> TierOf(const PlannedTerm& term, QuickTier worst);

  private:
    NodeRow(Database& db, QuickKind kind, std::int32_t id) : db_(&db), kind_(kind), id_(id) {}

    std::string ReadText(std::string_view sql) const;
    bool HasFilter(const PlannedTerm& term);
    bool HasKeyword(const PlannedTerm& term);
    bool HasLanguage(const std::vector<std::int32_t>& languageIDs) const;
    bool HasAuthor(const WordPattern& pattern) const;
    bool HasDate(const DayRange& days) const;

    Database* db_;
    QuickKind kind_;
    std::int32_t id_;
    NodeIDs ids_;
    std::string name_;
    std::string appName_;
    std::string className_;
    std::int32_t keywordID_ = 0;
    std::int32_t languageID_ = 0;
    std::optional<std::string> comment_;
    std::optional<std::string> code_;
};

/// The tier of a row as a hit, as far as the texts up to the tier `worst` tell; nothing where they
/// do not make it one.
std::optional<QuickTier> TierOfRow(const QuickPlan& plan, NodeRow& row, QuickTier worst);

/// An author's name as it is looked for: its parts with blanks between.
std::string AuthorName(std::string_view first, std::string_view middle, std::string_view last);

}  // namespace snippetarium
